// The checker of rule data: silent on what plays as meant, and one message, at the place, for each mistake.

#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

#include "base/text.h"
#include "check/folder.h"
#include "cli/run_cli.h"
#include "support/temp_folder.h"

namespace korvane::check {
namespace {

const std::string kRace = "Tolloum.eri";
const std::string kCareer = "Tolloum-Merchant.ecf";
const std::string kAssignment = "Tolloum-Merchant-House Factor.eas";

std::string Told(const std::vector<Finding>& findings) {
    std::string told;
    for (const auto& finding : findings)
        AppendAll(told, told.empty() ? "" : "; ", finding.line, ":", finding.column, " ", finding.kind->code);
    return told;
}

// A folder with one of the shipped races.
class Check : public ::testing::Test {
  protected:
    Check() {
        for (const auto& entry : std::filesystem::directory_iterator(KORVANE_SHIPPED_RULES))
            if (const auto name = entry.path().filename().string();
                name.starts_with("Tolloum") || name.ends_with(".dat") || name.ends_with(".htm"))
                std::filesystem::copy_file(entry.path(), folder.path() / name);
    }
    std::vector<Finding> Findings() const { return CheckFolder(folder.held()); }
    // What is told of a file one line of which is another; "DELETE" deletes it, "INSERT" puts a blank one before it.
    std::string With(const std::string& file, std::size_t line, const std::string& text) const {
        const auto whole = folder.Read(file);
        auto lines = test::LinesOf(whole);
        const auto place = lines.begin() + static_cast<std::ptrdiff_t>(line) - 1;
        if (text == "DELETE")
            lines.erase(place);
        else if (text == "INSERT")
            lines.insert(place, "");
        else
            *place = text;
        std::string edited;
        for (const auto& each : lines)
            edited += each + "\n";
        folder.Write(file, edited);
        auto told = Told(Findings());
        folder.Write(file, whole);
        return told;
    }

    test::TempFolder folder;
};

struct Mistake {
    std::string file;
    std::size_t line;
    std::string text;
    std::string told;
};

TEST_F(Check, EachMistakeIsToldOnceAtItsPlace) {
    EXPECT_EQ(Told(Findings()), "");
    const std::string many(24, '/');
    const std::vector<Mistake> mistakes = {
        // numbers of lines
        {kCareer, 9, "DELETE", "11:1 heading"},
        {kCareer, 20, "INSERT", "21:1 heading"},
        {kCareer, 71, "DELETE", "70:1 lines"},
        {kCareer, 71, "12-20: 75\nand more", "72:1 lines-after"},
        {kAssignment, 13, "INSERT", "21:1 heading"},
        {kAssignment, 41, "DELETE", "40:1 lines"},
        {kRace, 4, "7", "4:1 count"},
        {kRace, 29, "13", "29:1 count"},
        {kRace, 29, "x", "29:1 count"},
        {kRace, 45, "2", "45:1 count"},
        {kRace, 48, "5", "48:1 count"},
        {kRace, 56, "16", "56:1 count"},
        {kRace, 92, "6", "92:1 count"},
        {kRace, 27, "DELETE", "28:1 heading"},
        // numbers and labels
        {kCareer, 6, "50o0", "6:1 number"},
        {kCareer, 7, "Cr11000", "7:1 number"},
        {kCareer, 8, "20,000", "8:1 number"},
        {kRace, 5, "Str x", "5:1 number"},
        {kRace, 6, "Str 2", "6:1 duplicate"},
        {kRace, 4, "5", "4:1 count"},
        {kRace, 12, "Age per term:0", "12:14 number"},
        {kCareer, 33, "Dex +99999999999", "33:1 skill-raise"},
        {kCareer, 13, "Admin=1", "13:1 benefit"},
        {kRace, 6, "Dex 2 2", "6:1 number"},
        {kRace, 12, "Age per term:three", "12:14 number"},
        {kRace, 13, "Ageing:31", "13:1 label"},
        {kRace, 2, "Kin: Tolloum", "2:1 label"},
        {kCareer, 2, "Qualify:Int+6", "2:1 label"},
        {kCareer, 70, "8 to 11: 50", "70:1 label"},
        {kCareer, 70, "8-11: 150", "70:7 medical"},
        {kAssignment, 3, "Survival:Int+5", "3:1 label"},
        // checks
        {kCareer, 2, "Qualification: Int+6", "2:15 check-form"},
        {kCareer, 2, "Qualification:Int 6", "2:15 check-form"},
        {kCareer, 2, "Qualification:Luk 6+", "2:15 check-characteristic"},
        {kCareer, 2, "Qualification:Int +", "2:15 check-form"},
        {kAssignment, 3, "Survive:End 6+", "3:14 check-counts-other"},
        {kAssignment, 4, "Advance:Edu       8+", "4:20 check-form"},
        {kAssignment, 4, "Advance:Edu 10+", "4:15 check-counts-other"},
        {kCareer, 3, "Commission:Int 8+2", "3:12 commission"},
        {kCareer, 3, "Commission:no", "3:12 commission"},
        {kCareer, 3, "Commission:", "3:12 commission"},
        {kCareer, 3, "Commission:No ", "3:12 commission"},
        {kCareer, 34, "[Skills]Advanced Education", "34:9 title"},
        // codes
        {kCareer, 51, "A bale breaks out of its sling./INJT NOEJEC", "51:33 code-unknown"},
        {kCareer, 51, "A bale breaks out of its sling./INJR noejec", "51:38 code-unknown"},
        {kCareer, 58, "You bid on a shed./SINJ", "58:20 code-unknown"},
        {kCareer, 54, "A docking arm swings left./LIFE", "54:28 code-unknown"},
        {kCareer, 58, "You bid on a shed./ROGHEIST", "58:20 code-foreign"},
        {kCareer, 58, "You bid on a shed and/or a boat./LIFE", "58:22 slash"},
        {kCareer, 58, "You bid on a shed/", "58:18 code-unknown"},
        {kCareer, 58, "You bid on a shed. LIFE", "58:20 code-unknown"},
        {kCareer, 61, "/LIFE", "61:1 text-missing"},
        // skills
        {kCareer, 21, "Brokr", "21:1 skill-unknown"},
        {kCareer, 21, "Broker or Admin", "21:7 basic-training"},
        {kCareer, 22, "Persuade=1", "22:10 basic-training"},
        {kCareer, 29, "Broker=x", "29:8 skill-level"},
        {kCareer, 39, "Engineer (M-Drive)", "39:13 skill-level"},
        {kCareer, 37, "Advocate ", "37:1 skill-unknown"},
        {kCareer, 30, "Gambler or Deception or Admin", "30:12 alternatives"},
        {kCareer, 30, "Admin" + many, "30:1 alternatives"},
        {kCareer, 33, "Dex+1", "33:1 skill-raise"},
        {kCareer, 33, "Dexterity +1", "33:1 skill-raise"},
        {kCareer, 33, "Luk +1", "33:1 skill-raise"},
        {kCareer, 32, "Language (Trade Notes)", "32:11 speciality"},
        {kCareer, 32, "", "32:1 text-missing"},
        {kAssignment, 22, "none", "22:1 skill-unknown"},
        {kAssignment, 36, "Admin=1x", "36:7 skill-level"},
        {kRace, 30, "Animal-0", "30:1 skill-unknown"},
        {kRace, 57, "Animal", "57:1 skill-unknown"},
        {kRace, 62, "Dexterity/Endurance/Dexterity", "62:21 duplicate"},
        // benefits and places
        {kCareer, 17, "Ships Boat or Two Ship Shares", "17:1 benefit"},
        {kCareer, 19, "", "19:1 text-missing"},
        {kRace, 46, "Univrsity", "46:1 pre-career"},
        {kRace, 49, "Stilted Guard", "49:1 career-missing"},
        {kRace, 20, "", "20:1 text-missing"},
        // the other files
        {"MasterSkills.dat", 3, "Animals|ANIMALS*", "3:1 tag"},
        {"MasterSkills.dat", 2, "Advocate||ADVOCATE|\nAdmin||ADMIN|", "3:1 duplicate"},
        {"Packages.dat", 7, "Astrogration", "7:1 skill-unknown"},
        {"Worlds.dat", 10, "Table Prot", "10:1 unreadable"},
        {"template-plain.htm", 3, "<title>|NAMES|</title>", "3:8 tag"},
    };
    EXPECT_GE(mistakes.size(), 60U);
    for (const auto& mistake : mistakes)
        EXPECT_EQ(With(mistake.file, mistake.line, mistake.text), mistake.told)
            << mistake.file << " " << mistake.line << ": " << mistake.text;
}

TEST_F(Check, LettersOfOtherAlphabetsCountAsOne) {
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        const auto name = entry.path().filename().string();
        auto text = folder.Read(name);
        for (const auto& [from, to] : {std::pair("Dex", "Déx"), std::pair("D+ex", "D+éx")})
            for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + 1))
                if (at + std::string(from).size() == text.size() || text[at + std::string(from).size()] != 't')
                    text.replace(at, std::string(from).size(), to);
        if (name.starts_with("Tolloum"))
            folder.Write(name, text);
    }
    EXPECT_EQ(Told(Findings()), "");
}

TEST_F(Check, FilesThatNobodyWillSeeAreTold) {
    folder.Write("Toloum-Guard.ecf", "x");
    folder.Write("tolloum-merchant.ecf", "x");
    std::filesystem::remove(folder.path() / "Tolloum-Prisoner-Inmate.eas");
    folder.Write("Empty.eri", folder.Read(kRace));
    std::vector<std::string> told;
    for (const auto& finding : Findings())
        if (finding.kind->code != "career-missing")
            told.push_back(Concat(finding.file, " ", finding.kind->code));
    EXPECT_EQ(told, (std::vector<std::string>{"Empty.eri careers-missing", "Tolloum-Prisoner.ecf assignments-missing",
                                              "Toloum-Guard.ecf file-unseen", "tolloum-merchant.ecf case"}));
}

TEST_F(Check, ANewCareerIsWholeAndPlays) {
    const auto data = folder.path().string();
    EXPECT_EQ(cli::RunCli({"new-career", "Tolloum", "Eel Smith", "--data", data}).status, 0);
    EXPECT_EQ(Told(Findings()), "");
    EXPECT_NE(cli::RunCli({"new-career", "Tolloum", "Eel Smith", "--data", data}).err.find("is there already"),
              std::string::npos);
    EXPECT_EQ(cli::RunCli({"new-career", "Toloum", "Eel Smith", "--data", data}).status, 1);
    const auto balance = cli::RunCli({"balance", "--data", data, "--career", "Eel Smith", "--count", "60"});
    EXPECT_EQ(balance.status, 0) << balance.err;
    EXPECT_NE(balance.out.find("  Eel Smith, First Assignment: accepted % "), std::string::npos) << balance.out;
}

TEST_F(Check, TellsOnTheCommandLineAsFailsAsAsked) {
    const auto check = [&](const std::vector<std::string>& more) {
        std::vector<std::string> words = {"check", folder.path().string()};
        words.insert(words.end(), more.begin(), more.end());
        return cli::RunCli(words);
    };
    EXPECT_EQ(check({}).out, "");
    folder.Write(kAssignment, [&] {
        auto text = folder.Read(kAssignment);
        return text.replace(text.find("Survive:Int+5"), 13, "Survive:Int 5+");
    }());
    const auto told = kAssignment + ":3:14: warning: counts Soc; write Int+5 for Int [check-counts-other]\n";
    EXPECT_EQ(check({}).out, told);
    EXPECT_EQ(check({}).status, 0);
    EXPECT_EQ(check({"--strict"}).status, 1);
    EXPECT_NE(check({"--format", "json"})
                  .out.find(R"("line":3,"column":14,"severity":"warning","code":"check-counts-other")"),
              std::string::npos);
    EXPECT_NE(check({"--format", "sarif"}).out.find(R"("uri":"Tolloum-Merchant-House%20Factor.eas")"),
              std::string::npos);
    EXPECT_NE(cli::RunCli({"check", "--explain", "heading"}).out.find("line numbers"), std::string::npos);
    EXPECT_NE(cli::RunCli({"check", "--explain", "headin"}).err.find("did you mean \"heading\"?"), std::string::npos);
    EXPECT_EQ(cli::RunCli({"check", "/no/such"}).status, 1);
}

TEST(Shipped, RulesAreWithoutAMistake) {
    EXPECT_EQ(Told(CheckFolder(HeldPath(KORVANE_SHIPPED_RULES))), "");
}

}  // namespace
}  // namespace korvane::check
