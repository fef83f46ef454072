// The file boundary: names found in any case, text files read, files replaced whole, the environment.

#include "base/places.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/error.h"
#include "support/environment.h"
#include "support/temp_folder.h"

namespace korvane {
namespace {

using Names = std::vector<std::string>;
using test::InEnvironment;
using test::TempFolder;

TEST(Places, NamesAreFoundInAnyCaseAndWithEitherSeparator) {
    const TempFolder folder;
    const auto file = folder.Write("Rules/Old/Imperial Human.eri", "");
    for (const auto* path : {R"(Rules\Old\Imperial Human.eri)", R"(RULES\old\IMPERIAL HUMAN.ERI)",
                             R"(rules/Old\imperial human.eri)", R"(\rules\\OLD//Imperial human.Eri)"})
        EXPECT_TRUE(NativePath(folder.held() + path) == file && FileExists(folder.held() + path)) << path;
    EXPECT_EQ(NativePath(folder.held() + R"(rules\New.txt)"), folder.path() / "Rules/New.txt");
    EXPECT_FALSE(FileExists(folder.held() + R"(Rules\Old)")) << "a folder is no file";
    const auto other = folder.Write("Rules/Old/IMPERIAL HUMAN.eri", "");
    EXPECT_TRUE(NativePath(HeldPath(file)) == file && NativePath(HeldPath(other)) == other) << "exact";
    EXPECT_EQ(EnsureTrailingBackslash(R"(C:\Data)"), EnsureTrailingBackslash(R"(C:\Data\)"));
    EXPECT_EQ(EnsureTrailingBackslash(""), R"(\)");
}

TEST(Places, TextFilesAreReadInEitherEncodingWithEitherLineEnd) {
    const TempFolder folder;
    // clang-format off
    const std::vector<std::pair<std::string, Names>> cases = {
        {"", {}}, {"a\nb", {"a", "b"}}, {"a\n\n", {"a", ""}}, {"a\r\n\r\n b \r\n", {"a", "", " b "}},
        {"\xEF\xBB\xBFZo\xC3\xAB \xE2\x82\xAC \xF0\x9D\x84\x9E\r\n", {"Zoë € 𝄞"}},
        {"Zo\xEB \x80\x93\r\nb", {"Zoë €“", "b"}},
        // cut in the middle of a character, longer than needed, half a pair
        {"\xC3\xA4\xC3", {"Ã¤Ã"}}, {"\xC0\xAF", {"À¯"}}, {"\xED\xBF\xBF", {"í¿¿"}}};
    // clang-format on
    for (const auto& [bytes, lines] : cases) {
        folder.Write("Some.txt", bytes);
        EXPECT_EQ(ReadTextFile(folder.held() + "SOME.TXT", "a text").lines, lines) << testing::PrintToString(lines);
    }
}

TEST(Places, ReplacedFileHoldsTheNewContentAloneOrTheOldWhole) {
    const TempFolder folder;
    folder.Write("Page.htm", "an old and longer text");
    ReplaceFile(NativePath(folder.held() + "PAGE.HTM"), "new page\r\n");
    ReplaceFile(NativePath(folder.held() + R"(not\yet\there.txt)"), "text");

    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{8, before.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);  // no file may grow beyond 8 bytes, as on a full disk; the superuser's neither
    EXPECT_THROW(ReplaceFile(NativePath(folder.held() + "Page.htm"), std::string(100000, 'x')), FileError);
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_THROW(ReplaceFile(NativePath(folder.held() + "not"), "text"), FileError) << "a folder stands there";
    EXPECT_THROW(ReplaceFile(NativePath(folder.held() + R"(Page.htm\below.txt)"), "text"), FileError);
    EXPECT_EQ(folder.Read("Page.htm"), "new page\r\n");
    EXPECT_EQ(folder.Read("not/yet/there.txt"), "text");
    EXPECT_EQ(ListFiles(folder.held()), Names{"Page.htm"}) << "no file in another case, nothing left beside";
}

TEST(Places, AFileWhoseReplacementIsKilledIsTheOldOneOrTheNew) {
    const test::TempFolder folder;
    const auto file = folder.Write("page.htm", "old");
    const std::string page(4'000'000, 'x');
    int replaced = 0;
    for (int round = 0; round < 40; ++round) {
        folder.Write("page.htm", "old");
        const auto writer = fork();
        if (writer == 0) {
            ReplaceFile(file, page);
            _exit(0);
        }
        usleep(static_cast<useconds_t>(round) * 200);
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        const auto content = folder.Read("page.htm");
        ASSERT_TRUE(content == "old" || content == page) << content.size() << " bytes in round " << round;
        replaced += content == "old" ? 0 : 1;
    }
    RecordProperty("replaced", replaced);
}

TEST(Places, EnvironmentEntryIsTheFirstThatBeginsWithTheName) {
    const Names entries = {"OTHER=x", "WinDirectory=  C:\\W in = 1 ", "WINDIR=2", "MYPATH=p", "", "After=x"};
    EXPECT_EQ(InEnvironment(entries, [] { return GetEnvironmentValue("WINDIR"); }), R"(C:\W in = 1)");
    EXPECT_EQ(InEnvironment(entries, [] { return GetEnvironmentValue("path"); }), "") << "only the beginning counts";
    EXPECT_EQ(InEnvironment(entries, [] { return GetEnvironmentValue("After"); }), "") << "an empty entry is the end";
}

TEST(Places, ConfigurationFolderIsTheWindowsFolderElseTheUsers) {
    EXPECT_EQ(InEnvironment({"HOME=/h", "XDG_CONFIG_HOME=/x", "windir=C:\\W"}, ConfigurationFolder), R"(C:\W\)");
    EXPECT_EQ(InEnvironment({"WINDIR=/mnt/win/"}, ConfigurationFolder), R"(\mnt\win\)");
    EXPECT_EQ(InEnvironment({"WINDIR=", "HOME=/h", "XDG_CONFIG_HOME=/x"}, ConfigurationFolder), R"(\x\korvane\)");
    EXPECT_EQ(InEnvironment({"HOMEPAGE=/no", "HOME=/h"}, ConfigurationFolder), R"(\h\.config\korvane\)");
}

}  // namespace
}  // namespace korvane
