// The page: every tag's value, the rule of replacing, and the file that is written.

#include "output/page_export.h"

#include <filesystem>

#include "base/error.h"
#include "base/files.h"
#include "output/page_file.h"
#include "support/environment.h"
#include "support/temp_folder.h"
#include "support/world.h"

namespace korvane {
namespace {

using test::Environment;

class PageExport : public test::World {
  protected:
    PageExport() { session.masterSkills = {}; }

    std::string Filled(const std::string& line, const std::string& name = "Jo") const {
        return FillTemplate({line}, session, name).at(0);
    }
    // Exports through a template of these bytes. Gives the bytes of the page.
    std::string Exported(const std::string& bytes, const std::string& name) {
        folder.Write("template.htm", bytes);
        const Environment profile({"USERPROFILE=" + folder.path().string()});
        outcome = ExportCharacter(session, folder.held() + "template.htm", name);
        return folder.Read("Korvane/" + std::filesystem::path(outcome.path).filename().string());
    }

    test::TempFolder folder;
    ExportOutcome outcome;
};

TEST_F(PageExport, EachTagIsReplacedWhereALineHoldsItFirst) {
    character().Age = 34;
    EXPECT_EQ(Filled("|AGE| and |AGE|, |age| |NOTES||RACE|"), "34 and |AGE|, |age| Other stuffImperial Human");
    EXPECT_EQ(FillTemplate({"|AGE|", "|AGE|\r"}, session, ""), (Names{"34", "34\r"})) << "in every line";
    EXPECT_EQ(Filled("|NAME||AGE|", "<b>|AGE|"), "<b>34|AGE|") << "a value may hold a tag that comes later";
    character().HomeWorld[0] = "|NAME| |TRAITS| |PENSION|";
    session.race.traits = {"", "Brave"};
    EXPECT_EQ(Filled("|HOMEWORLD|"), "Port: |NAME| Brave |PENSION|") << "but not one that came before";
    EXPECT_EQ(Filled("||NAME|| |STAT7| |STAT01|"), "|Jo| |STAT7| |STAT01|");
}

TEST_F(PageExport, CharacteristicsShowValueModifierNameAndBoxes) {
    SetCharacteristic(kStr, 12);
    SetCharacteristic(kDex, 5);
    SetCharacteristic(kEnd, 3);
    SetCharacteristic(kInt, 11);
    SetCharacteristic(kSoc, -1);
    const auto shown = [&](int slot) {
        return Filled(Concat("|STAT", slot, "NAME| |STAT", slot, "| |STAT", slot, "BON| [|STAT", slot, "BOXES|]"));
    };
    EXPECT_EQ(shown(kStr), "Str 12 +2 [OOOOO OOOOO OO]");
    EXPECT_EQ(shown(kDex), "Dex 5 +0 [OOOOO ]");
    EXPECT_EQ(shown(kEnd), "End 3 -1 [OOO]");
    EXPECT_EQ(shown(kInt), "Int 11 +1 [OOOOO OOOOO O]");
    EXPECT_EQ(shown(kSoc), "Soc -1 +0 []");
    EXPECT_EQ(Filled("|HITS|"), "3/20");
    character().CharacteristicDM[kStr] = 4;
    session.race.characteristicCount = 1;
    session.race.characteristicName[1] = "Ki ";
    EXPECT_EQ(shown(kStr), "Ki  12 +4 [OOOOO OOOOO OO]") << "the stored modifier, the race's own name";
    EXPECT_EQ(Filled("|STAT2|"), "|STAT2|");
    EXPECT_EQ(Filled("|HITS|"), "3/20");
}

TEST_F(PageExport, MasterSkillsFillTheirTagsAloneOrWithSpecialities) {
    session.masterSkills = {
        "", "Admin||ADMIN|", " Pilot | |PILOT* ", "Gunner||GUNNER*", "Gun||GUNS*", "Medic", "Art |X", "Pilot||BARE|",
        "", "Stealth||LATE|"};
    Hold("Pilot (Spacecraft)", 2);
    Hold("Gunner", 0);
    Hold("Admin", 0);
    Hold("Pilot (Small Craft)", 1);
    Hold("Gunner (Turret)", 1);
    Hold("Stealth", 1);
    const std::string in = "&nbsp; &nbsp; &nbsp; &nbsp;";
    EXPECT_EQ(Filled("[|ADMIN|][|BARE|][X][|LATE|]"), "[0][][][|LATE|]") << "the list ends at its first empty line";
    EXPECT_EQ(Filled("|PILOT|"), "Pilot 0<br>" + in + "Pilot (Spacecraft) 2<br>" + in + "Pilot (Small Craft) 1<br>");
    EXPECT_EQ(Filled("|GUNNER|"), "Gunner 0<br>" + in + "Gunner (Turret) 1<br>") << "the held skill is the head";
    EXPECT_EQ(Filled("|GUNS|"), "Gun 0<br>" + in + "Gunner 0<br>" + in + "Gunner (Turret) 1<br>");
    *character().Skills.LevelOf("Gunner") = 2;
    EXPECT_EQ(Filled("|GUNNER|"), "Gunner 2<br>Gunner 0<br>" + in + "Gunner (Turret) 1<br>");
    session.masterSkills = {"", "Gunner||G*", "Admin||G|"};
    EXPECT_EQ(Filled("|G||G|"), "0Gunner 2<br>Gunner 0<br>" + in + "Gunner (Turret) 1<br>") << "plain tags come first";
}

TEST_F(PageExport, ListsAreJoinedAndEmptyOnesAreEmpty) {
    const std::string tags = "[|SKILLS|][|BENEFITS|][|CONTACTS||ALLIES||RIVALS||ENEMIES|][|DEBT||MONEY||PENSION|]";
    EXPECT_EQ(Filled(tags), "[][][][CrCr]");
    Hold("Admin", 1);
    Hold("Gone", 3);
    Hold("Pilot (Spacecraft)", 0);
    character().Skills.Free("Gone");
    for (const auto* benefit : {"Blade", " ", "TAS Membership"})
        character().Benefits.Add(benefit);
    character().Contacts = 2;
    character().Allies = -1;
    character().Enemies = 1;
    character().MedicalDebt = 1000.4F;
    character().Cash = 1500;
    character().Pension = 10000;
    EXPECT_EQ(Filled(tags),
              "[Admin-1, Pilot (Spacecraft)-0][Blade, TAS Membership][Contacts: 2Enemies: 1][Cr1,000Cr1,500Cr10,000]");
    session.race.traits = {"not a trait", "Keen", "", "Tall "};
    session.assignment.assignmentDescription = "Foot";
    session.assignment.rankTitle[2] = "Corporal";
    character().Rank = 2;
    EXPECT_EQ(Filled("[|TRAITS|][|ASSIGNMENT|][|RANK|]"), "[Keen  Tall][Foot][Corporal]");
    character().Rank = 13;
    EXPECT_THROW(Filled("|RANK|"), RuleError);
}

TEST_F(PageExport, HistoryOpensARowAtEachMarkOfATerm) {
    const std::string table = "<table width=100% border=1>";
    EXPECT_EQ(Filled("|HISTORY|"), table + "</table>");
    AddHistory(session, "Before <b>");
    EXPECT_EQ(Filled("|HISTORY|"), table + "Before <b><br></table>");
    for (const auto* line : {"-- Term 1 --", "Enlist", "------ Term 2 ------", "-- Term again"})
        AddHistory(session, line);
    EXPECT_EQ(Filled("|HISTORY|"),
              table + "Before <b><br><tr width=100%><td>-- Term 1 --<br>Enlist<br>" +
                  "------ Term 2 ------<br></td></tr><tr width=100%><td>-- Term again<br></table>");
}

TEST_F(PageExport, TheLifeIsDrawnLastAndOnOneLine) {
    EXPECT_EQ(Filled("[|LIFE|]"), "[]") << "it hasn't begun";
    AddHistory(session, "-- Term 1 --");
    session.race.traits = {"", "|LIFE|"};
    const auto drawn = Filled("|TRAITS|");
    EXPECT_TRUE(drawn.starts_with("<svg ") && drawn.ends_with("</svg>")) << drawn;
    EXPECT_EQ(drawn.find('\n'), std::string::npos);
}

TEST_F(PageExport, FilesAndPortraitsAreCalledByTheLettersOfTheName) {
    EXPECT_EQ(Exported("|NAME| |PORTRAIT|", "Jo-Ann O'Neil"), "Jo-Ann O'Neil <img src=JoAnnONeil.jpg>");
    EXPECT_EQ(outcome.path, (folder.path() / "Korvane/JoAnnONeil.htm").string());
    EXPECT_EQ(outcome.message, "Character exported to " + outcome.path);
    EXPECT_EQ(Exported("|NAME|", "JoAnn (ONeil)"), "JoAnn (ONeil)") << "an earlier page is replaced";
    EXPECT_EQ(Exported("|NAME||PORTRAIT|", " 77 "), " 77 <img src=.jpg>");
    EXPECT_EQ(ListFiles(folder.held() + "Korvane"), (Names{".htm", "JoAnnONeil.htm"}));
}

TEST_F(PageExport, PagesHaveTheEncodingAndTheLineEndsOfTheirTemplate) {
    const std::string name = "Zo\u00EB \u20AC\u221A\U0001F680";
    EXPECT_EQ(Exported("\u00E9 |NAME|\r\n\r\nb", name), "\u00E9 " + name + "\r\n\r\nb");
    EXPECT_EQ(Exported("\xEF\xBB\xBF|NAME|\n", name), "\xEF\xBB\xBF" + name + "\n");
    EXPECT_EQ(Exported("\xE9 \x93\x81 |NAME|\r\nb\n", name), "\xE9 \x93\x81 Zo\xEB \x80&#8730;&#128640;\r\nb\n");
    EXPECT_EQ(Exported("", name), "");
}

TEST_F(PageExport, WithoutAProfileFolderNothingIsWritten) {
    const auto page = folder.Write("template.htm", "|NAME|");
    const auto export_from = [&](const std::vector<std::string>& entries) {
        const Environment environment(entries);
        return ExportCharacter(session, folder.held() + "template.htm", "Jo");
    };
    for (const auto& entries : {Names{}, Names{"USERPROFILE= ", "HOME="}}) {
        EXPECT_EQ(export_from(entries).message, "Your device needs a USERPROFILE env variable");
        EXPECT_EQ(export_from(entries).path, "");
    }
    const auto home = folder.path().string() + "/home";
    EXPECT_EQ(export_from({"HOMEPAGE=x", "HOME=" + home}).path, home + "/Korvane/Jo.htm");
    EXPECT_EQ(export_from({"HOME=/nowhere", "USERPROFILE=" + home + "\\mine"}).path, home + "/mine/Korvane/Jo.htm");
    folder.Write("file", "");
    EXPECT_THROW(export_from({"HOME=" + folder.path().string() + "/file"}), FileError);
    std::filesystem::remove(page);
    EXPECT_THROW(export_from({"HOME=" + home}), FileError) << "no such template";
}

TEST(Templates, AreListedByTheirPattern) {
    const test::TempFolder folder;
    for (const auto* name : {"template.htm", "Template-b.HTM", "template-a.htm", "template.html", "mytemplate.htm",
                             "template.htm.bak", "templat.htm", "sub/template.htm"})
        folder.Write(name, "");
    EXPECT_EQ(TemplateNames(folder.held()), (Names{"Template-b.HTM", "template-a.htm", "template.htm"}));
}

TEST_F(PageExport, AnAsciiTemplateSaysItsEncodingInItsMetaElement) {
    const auto page = [&](const std::string& head) {
        return Exported(head + "|NAME|", "Zo\u00EB").substr(head.size());
    };
    for (const auto* const western :
         {R"(<meta charset="windows-1252">)", "<META CHARSET = 'Latin1' >", "<meta charset=us-ascii>",
          R"(<!-- <meta charset="utf-8"> --><meta http-equiv=content-type content="text/html; charset=ISO-8859-1">)"})
        EXPECT_EQ(page(western), "Zo\xEB") << western;
    for (const auto* const utf8 : {"", R"(<meta charset="utf-8">)", "<!-- charset=windows-1252 -->",
                                   "<meta name=charset content=x><p>charset=windows-1252"})
        EXPECT_EQ(page(utf8), "Zo\u00EB") << utf8;
}

}  // namespace
}  // namespace korvane
