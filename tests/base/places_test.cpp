// The file boundary: names found in any case, text files read, files replaced whole, the environment.

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/encoding.h"
#include "base/environment.h"
#include "base/error.h"
#include "base/files.h"
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
    EXPECT_TRUE(NativePath(Held(file)) == file && NativePath(Held(other)) == other) << "exact";
    EXPECT_EQ(EnsureTrailingBackslash(HeldPath("C:/Data")), EnsureTrailingBackslash(HeldPath(R"(C:\Data\)")));
    EXPECT_EQ(EnsureTrailingBackslash(HeldPath()).text(), R"(\)");
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
        const auto file = ReadTextFile(folder.held() + "SOME.TXT", "a text");
        Names read;
        for (int i = 1; i <= file.lines(); ++i)
            read.emplace_back(file.line(i));
        EXPECT_EQ(read, lines) << testing::PrintToString(lines);
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

TEST(Places, EnvironmentEntryIsTheFirstThatBeginsWithTheName) {
    const Names entries = {"OTHER=x", "WinDirectory=  C:\\W in = 1 ", "WINDIR=2", "MYPATH=p", "", "After=x"};
    EXPECT_EQ(InEnvironment(entries, [] { return GetEnvironmentValue("WINDIR"); }), R"(C:\W in = 1)");
    EXPECT_EQ(InEnvironment(entries, [] { return GetEnvironmentValue("path"); }), "") << "only the beginning counts";
    EXPECT_EQ(InEnvironment(entries, [] { return GetEnvironmentValue("After"); }), "") << "an empty entry is the end";
}

TEST(Places, OnlyFilesOfBoundedSizeAreRead) {
    const TempFolder folder;
    const auto pipe = folder.path() / "pipe.eri";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_THROW(ReadBytes(pipe, "a text"), IoError) << "and doesn't wait for a writer";
    EXPECT_THROW(LineFile(pipe, Sync::Later), IoError);
    EXPECT_THROW(ReadBytes(folder.path(), "a text"), IoError);
    EXPECT_EQ(ReadBytes(folder.Write("four", "1234"), "a text", 4), "1234");
    EXPECT_THROW(ReadBytes(folder.Write("five", "12345"), "a text", 4), IoError);
}

TEST(Places, ReplacingFollowsLinksKeepsPermissionsAndSweepsBehindTheDead) {
    const TempFolder folder;
    const auto page = folder.Write("pages/Jo.htm", "old");
    std::filesystem::permissions(page, std::filesystem::perms(0640));
    std::filesystem::create_symlink("pages/Jo.htm", folder.path() / "link");
    const auto writer = fork();
    if (writer == 0) {
        const rlimit small{8, 8};
        setrlimit(RLIMIT_FSIZE, &small);  // the system kills it in the middle
        std::signal(SIGXFSZ, SIG_DFL);
        ReplaceFile(page, std::string(100000, 'x'));
        _exit(0);
    }
    waitpid(writer, nullptr, 0);
    EXPECT_EQ(ListFiles(folder.held() + "pages").size(), 2U) << "half of a page stays beside it";
    ReplaceFile(folder.path() / "link", "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link"));
    EXPECT_EQ(folder.Read("pages/Jo.htm"), "new");
    EXPECT_EQ(std::filesystem::status(page).permissions(), std::filesystem::perms(0640));
    EXPECT_EQ(ListFiles(folder.held() + "pages"), Names{"Jo.htm"});

    std::filesystem::create_symlink("nowhere/Jo.htm", folder.path() / "dangling");
    try {
        ReplaceFile(folder.path() / "dangling", "new");
        ADD_FAILURE() << "there is no such folder";
    } catch (const IoError& error) {
        EXPECT_EQ(error.what(),
                  (folder.path() / "dangling").string() + ": can't be written: No such file or directory");
    }
    ReplaceFile(folder.path() / (std::string(251, 'n') + ".htm"), "a name as long as the system takes");
}

TEST(Places, LinesAreInTheFileAtOnceAndNoFileIsOverwritten) {
    const TempFolder folder;
    LineFile journal(folder.path() / "deep/life.jsonl", Sync::Now);
    journal.Write("one");
    journal.Write("gone back over");
    journal.CutTo(4);
    EXPECT_EQ(folder.Read("deep/life.jsonl"), "one\n");
    EXPECT_THROW(LineFile(journal.path(), Sync::Now), IoError);
    EXPECT_EQ(folder.Read("deep/life.jsonl"), "one\n");
    LineFile(journal.path(), Sync::Now, true).Write("two");
    EXPECT_EQ(folder.Read("deep/life.jsonl"), "one\ntwo\n");
}

TEST(Errors, ShowWhatWasFoundInBoundsAndAsItIs) {
    EXPECT_EQ(Quoted("a\tb\x1B[2J\xFF é \u0085"), R"("a\tb\x1B[2J\xFF é \xC2\x85")");
    EXPECT_EQ(Quoted(std::string(100, 'x')), "\"" + std::string(80, 'x') + "...\"");
    const ParseError parse("a\nb.ecf", 7, "a number", Quoted("1\n2"));
    EXPECT_STREQ(parse.what(), R"(a\nb.ecf:7: expected a number, found "1\n2")");
    RuleError rule(RuleError::Kind::Type, "no number");
    rule.AddPlace("x.ecf", 0, "unknown line");
    EXPECT_STREQ(rule.what(), "no number");
    rule.AddPlace("x.ecf", 3, "Admin-x");
    rule.AddPlace("y.ecf", 4, "outside");
    EXPECT_STREQ(rule.what(), R"(no number (x.ecf:3: "Admin-x"))");
}

}  // namespace
}  // namespace korvane
