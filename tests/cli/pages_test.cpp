// The pages that the command line writes: one or many, from a life or its journal, and PDF files of them.

#include <filesystem>
#include <gtest/gtest.h>

#include "base/files.h"
#include "base/text.h"
#include "cli/run_cli.h"
#include "support/environment.h"
#include "support/temp_folder.h"

namespace korvane::cli {
namespace {

using Files = std::vector<std::string>;

class Pages : public ::testing::Test {
  protected:
    Pages() { folder.Write("my.htm", "|NAME|\n|AGE|\n|HOMEWORLD|\n|RANK|\n"); }

    std::string Native(const std::string& name) const { return (folder.path() / name).string(); }
    Outcome Generate(const Files& more) const {
        Files arguments = {"generate", "--seed", "7",          "--data",        data,
                           "--format", "html",   "--template", Native("my.htm")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return RunCli(arguments);
    }
    Files FilesIn(const std::string& name) const { return ListFiles(Held(folder.path() / name)); }
    bool Holds(const std::string& file, const std::string& text) const {
        return folder.Read(file).find(text) != std::string::npos;
    }
    // A data folder of the shipped rules without names.
    void TakeNamesAway() {
        std::filesystem::copy(KORVANE_RULES, folder.path() / "data");
        std::filesystem::remove(folder.path() / "data/Names.dat");
        data = Native("data");
    }

    test::TempFolder folder;
    std::string data = KORVANE_RULES;
};

TEST_F(Pages, OneIsCalledByItsNameAndAReplayedJournalGivesItAgain) {
    EXPECT_EQ(Generate({"--out", Native("typed"), "--name", "Jo-Ann <O'Neil>"}).status, 0);
    EXPECT_TRUE(folder.Read("typed/JoAnnONeil.htm").starts_with("Jo-Ann <O'Neil>\n"));
    EXPECT_EQ(Generate({"--out", Native("typed"), "--name", ""}).status, 0);
    EXPECT_EQ(FilesIn("typed"), (Files{".htm", "JoAnnONeil.htm"}));

    const auto rolled = Generate({"--out", Native("rolled"), "--journal", Native("journals")});
    EXPECT_EQ(rolled.out + rolled.err, "");
    const auto files = FilesIn("rolled");
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(RunCli({"replay", Native("journals/character-1.jsonl"), "--data", data, "--format", "html", "--template",
                      Native("my.htm"), "--out", Native("replayed")})
                  .status,
              0);
    EXPECT_EQ(FilesIn("replayed"), files);
    EXPECT_EQ(folder.Read("replayed/" + files[0]), folder.Read("rolled/" + files[0]));
    EXPECT_TRUE(Holds("rolled/" + files[0], "Port: ")) << "the home world";
}

TEST_F(Pages, ManyAreNumberedAndListed) {
    const auto outcome = Generate({"--count", "10", "--out", Native("out"), "--name", "A<b> & Co"});
    EXPECT_EQ(Concat(outcome.status, outcome.out), "0");
    const auto files = FilesIn("out");
    ASSERT_EQ(files.size(), 11U);
    EXPECT_EQ(files.front() + " " + files.back(), "character-01.htm index.htm");
    for (const auto& file : files)
        EXPECT_TRUE(file == "index.htm" || Holds("out/index.htm", "<a href=\"" + file + "\">A&lt;b&gt; &amp; Co</a>"));
    EXPECT_TRUE(Holds("out/character-10.htm", "A<b> & Co\n"));

    TakeNamesAway();
    Generate({"--count", "2", "--out", Native("nameless")});
    EXPECT_TRUE(Holds("nameless/character-2.htm", "Character 2\n"));
    EXPECT_TRUE(Holds("nameless/index.htm", ">Character 2</a>"));
    Generate({"--out", Native("nameless")});
    EXPECT_TRUE(Holds("nameless/Character.htm", "Character\n"));
}

TEST_F(Pages, TemplatesAreFoundInTheDataFolderOrByTheirPath) {
    const auto generate = [&](const Files& more) {
        Files arguments = {"generate", "--seed", "7",  "--data", data,         "--format",
                           "html",     "--name", "Jo", "--out",  Native("out")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return RunCli(arguments);
    };
    TakeNamesAway();
    folder.Write("data/template.htm", "default |NAME|");
    folder.Write("data/template-mine.htm", "mine |NAME|");
    EXPECT_EQ(generate({}).err, "");
    EXPECT_EQ(folder.Read("out/Jo.htm"), "default Jo");
    generate({"--template", "Template-Mine.HTM"});
    EXPECT_EQ(folder.Read("out/Jo.htm"), "mine Jo");
    const auto unknown = generate({"--template", "other.htm"});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_NE(unknown.err.find("unknown template \"other.htm\""), std::string::npos) << unknown.err;
    EXPECT_NE(unknown.err.find("template-mine.htm"), std::string::npos) << unknown.err;
    EXPECT_NE(generate({"--template", "./other.htm"}).err.find("other.htm: can't be read as a template"),
              std::string::npos);
}

TEST_F(Pages, PdfFilesAreMadeByTheProgramForThem) {
    const auto program = folder.Write("bin/korvane-pdf", "#!/bin/sh\nfor p; do cp \"$p\" \"${p%.htm}.pdf\"; done\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    const auto generate = [&](const std::string& path) {
        const test::Environment environment({"PATH=" + path});
        return Generate({"--pdf", "--name", "Jo", "--count", "2", "--out", Native("a folder's")});
    };
    EXPECT_EQ(generate(Native("bin") + ":/usr/bin:/bin").err, "");
    for (const std::string page : {"character-1", "character-2"})
        EXPECT_EQ(folder.Read("a folder's/" + page + ".pdf"), folder.Read("a folder's/" + page + ".htm"));
    const auto missing = generate("/nowhere");
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.err.find("korvane-pdf, which makes PDF files, is neither beside"), std::string::npos)
        << missing.err;
    folder.Write("bin/korvane-pdf", "#!/bin/sh\nexit 3\n");
    const auto failed = generate(Native("bin") + ":/usr/bin:/bin");
    EXPECT_EQ(failed.status, 1);
    EXPECT_NE(failed.err.find("made no PDF file of "), std::string::npos) << failed.err;
    EXPECT_NE(failed.err.find("(exit status 3)"), std::string::npos) << failed.err;
}

}  // namespace
}  // namespace korvane::cli
