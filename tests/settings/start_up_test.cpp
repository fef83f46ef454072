// The start of the program: the order of its steps, its messages, and the configuration file.

#include "settings/start_up.h"

#include <cstdlib>
#include <gtest/gtest.h>

#include "base/files.h"
#include "settings/configuration.h"
#include "support/environment.h"
#include "support/scripted_dice.h"
#include "support/scripted_player.h"
#include "support/temp_folder.h"

namespace korvane {
namespace {

// Notes what was shown, in order; answers the file-open dialog.
class Windows : public StartUpWindows {
  public:
    void ShowMessage(std::string_view text, Icon icon) override {
        shown.emplace_back(text.substr(0, 34));
        lastText = text;
        icons.push_back(icon);
    }
    std::optional<HeldPath> ChooseRaceFile(std::string_view proposedName) override {
        shown.push_back("open " + std::string(proposedName));
        return chosen;
    }
    void EditFile(const HeldPath& path) override { shown.push_back("edit " + NativePath(path).filename().string()); }
    void ShowAbout() override { shown.emplace_back("about"); }
    void ShowMainWindow() override { shown.emplace_back("main"); }

    std::optional<HeldPath> chosen;
    std::vector<std::string> shown;
    std::vector<Icon> icons;
    std::string lastText;
};

class StartUpTest : public ::testing::Test {
  protected:
    StartUpTest() {
        setenv("WINDIR", folder.path().c_str(), 1);
        rules.CopyRules();
    }
    ~StartUpTest() override { unsetenv("WINDIR"); }

    bool Start(std::string_view arguments = "", int month = 11) {
        windows.shown.clear();
        return StartUp(session, windows, arguments, month);
    }
    void Configure(const std::string& text) const { folder.Write("Korvane.ini", text); }

    test::TempFolder folder;  // of the configuration file
    test::TempFolder rules;
    test::ScriptedDice dice;
    test::ScriptedPlayer player;
    Display display;
    Session session{DataFolder(HeldPath("")), {&dice, &player, &display}};
    Windows windows;
};

using Shown = std::vector<std::string>;
const std::string kSetUp = "Korvane needs to know where its' d";
const std::string kSetTo = "Korvane has been set to read data ";
const std::string kWrong = "Your INI file is pointing to the w";
const std::string kOpen = "open Imperial Human.eri";

TEST_F(StartUpTest, FirstRunAsksForTheFolderAndShowsNoNotice) {
    windows.chosen = Held(rules.path() / "Imperial Human.eri");
    EXPECT_TRUE(Start());
    EXPECT_EQ(windows.shown, (Shown{kSetUp, kOpen, kSetTo, "main"}));
    EXPECT_EQ(windows.icons.front(), Icon::Information);
    EXPECT_EQ(windows.lastText, "Korvane has been set to read data files from " + rules.path().string() + "/");
    EXPECT_EQ(folder.Read("Korvane.ini"), "dataloc=" + rules.held().text() + "\r\nLastMonth=11\r\n");
    EXPECT_EQ(session.programTitle, "Brisane Farwend v2 Characters v1.1");
    EXPECT_TRUE(session.masterSkills[1].starts_with("Admin|"));
    EXPECT_TRUE(Start());
    EXPECT_EQ(windows.shown, Shown{"main"});
}

TEST_F(StartUpTest, CancellingTheFirstRunWritesNothing) {
    EXPECT_FALSE(Start());
    EXPECT_EQ(windows.shown, (Shown{kSetUp, kOpen}));
    EXPECT_FALSE(FileExists(ConfigurationPath()));
}

TEST_F(StartUpTest, FolderWithoutRulesEndsInTheEditor) {
    const test::TempFolder empty;
    windows.chosen = Held(empty.path() / "Other.eri");
    EXPECT_FALSE(Start());
    EXPECT_EQ(windows.shown, (Shown{kSetUp, kOpen, kSetTo, kWrong, "edit Korvane.ini"}));
}

TEST_F(StartUpTest, ConfiguredFolderThatLostItsRulesIsAskedForAgain) {
    Configure("dataloc=" + folder.held().text() + "\r\nLastMonth=11\r\n");
    windows.chosen = Held(rules.path() / "Imperial Human.eri");
    EXPECT_TRUE(Start());
    EXPECT_EQ(windows.shown, (Shown{kSetUp, kOpen, kSetTo, "main"}));
}

TEST_F(StartUpTest, AboutIsShownOnceAMonth) {
    Configure("LastMonth=10\r\nother\r\nDATALOC=" + rules.path().string() + "\r\n");
    EXPECT_TRUE(Start());
    EXPECT_EQ(windows.shown, (Shown{"about", "main"}));
    EXPECT_EQ(folder.Read("Korvane.ini"), "dataloc=" + rules.held().text() + "\r\nLastMonth=11\r\n");
    EXPECT_TRUE(Start());
    EXPECT_EQ(windows.shown, Shown{"main"});
    EXPECT_TRUE(Start("", 1));
    EXPECT_EQ(windows.shown, (Shown{"about", "main"}));
    EXPECT_EQ(GetIniValue(HeldPath("Korvane.ini"), "LastMonth"), "01");
}

TEST_F(StartUpTest, TestModeIsOneExactWord) {
    Configure("dataloc=" + rules.held().text() + "\r\nLastMonth=11\r\n");
    for (const auto* const other : {"testmode", "TESTMODE X", " TESTMODE"}) {
        EXPECT_TRUE(Start(other));
        EXPECT_EQ(windows.shown, Shown{"main"}) << other;
    }
    EXPECT_TRUE(Start("TESTMODE"));
    EXPECT_EQ(windows.shown, (Shown{"Checking for INI", "main"}));
}

TEST_F(StartUpTest, MissingMasterSkillsEndTheProgram) {
    Configure("dataloc=" + rules.held().text() + "\r\nLastMonth=11\r\n");
    std::filesystem::remove(rules.path() / "MasterSkills.dat");
    EXPECT_THROW(Start(), FileError);
}

TEST_F(StartUpTest, ValuesAreReadFromTheFirstLineThatBeginsWithTheKey) {
    Configure("datalocation=C:\\One\ndataloc = C:\\Two\nLASTMONTH=07\n");
    EXPECT_EQ(GetIniValue(HeldPath("Korvane.ini"), "dataloc"), "tion=C:\\One")
        << "a longer key matches too, and comes first";
    EXPECT_EQ(GetIniValue(HeldPath("korvane.ini"), "lastmonth"), "07");
    Configure("dataloc = C:\\Two\n");
    EXPECT_EQ(GetIniValue(folder.held() + "KORVANE.INI", "DataLoc"), "= C:\\Two")
        << "one character is skipped, nothing trimmed";
    EXPECT_EQ(GetIniValue(HeldPath("Korvane.ini"), "nothing"), "");
    EXPECT_EQ(GetIniValue(HeldPath("None.ini"), "dataloc"), "");
}

TEST(Version, CountsTenthsAndHundredths) {
    EXPECT_EQ(ProgramTitle(ProgramVersion(1, 2, 5)), "Brisane Farwend v2 Characters v1.25");
    EXPECT_EQ(ProgramTitle(ProgramVersion(1, 1, 2)), "Brisane Farwend v2 Characters v1.12");
    EXPECT_EQ(ProgramTitle(ProgramVersion(2, 0, 0)), "Brisane Farwend v2 Characters v2");
}

TEST(Configuration, ConfigurationFolderIsTheWindowsFolderElseTheUsers) {
    const auto folder = [] { return ConfigurationFolder().text(); };
    EXPECT_EQ(test::InEnvironment({"HOME=/h", "XDG_CONFIG_HOME=/x", "windir=C:\\W"}, folder), R"(C:\W\)");
    EXPECT_EQ(test::InEnvironment({"WINDIR=/mnt/win/"}, folder), R"(\mnt\win\)");
    EXPECT_EQ(test::InEnvironment({"WINDIR=", "HOME=/h", "XDG_CONFIG_HOME=/x"}, folder), R"(\x\korvane\)");
    EXPECT_EQ(test::InEnvironment({"HOMEPAGE=/no", "HOME=/h"}, folder), R"(\h\.config\korvane\)");
}

}  // namespace
}  // namespace korvane
