// What shells are told, names in any case, and characters for other programs.

#include <algorithm>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "run_cli.h"
#include "support/temp_folder.h"

namespace korvane::cli {
namespace {

std::vector<std::string> Completed(std::vector<std::string> words) {
    words.insert(words.begin(), {"complete", "--"});
    return test::LinesOf(RunCli(words).out);
}

using Words = std::vector<std::string>;

TEST(Completion, KnowsVerbsOptionsAndWhatTheDataHave) {
    EXPECT_EQ(Completed({"bal"}), Words{"balance"});
    EXPECT_EQ(Completed({"generate", "--journ"}), Words{"--journal"});
    EXPECT_EQ(Completed({"generate", "--data", KORVANE_RULES, "--career", "sc"}), Words{"Scout"});
    EXPECT_EQ(Completed({"play", "--data", KORVANE_RULES, "--career", "SCOUT", "--assignment", "C"}), Words{"Courier"});
    EXPECT_EQ(Completed({"odds", "--format", "j"}), Words{"json"});
    EXPECT_EQ(Completed({"replay", "--data", KORVANE_RULES, "--template", "template-s"}), Words{"template-story.htm"});
    EXPECT_TRUE(Completed({"replay", "life"}).empty()) << "files are the shell's";
    EXPECT_TRUE(Completed({"nonsense", ""}).empty());
    EXPECT_EQ(Completed({"generate", "--data", KORVANE_SHIPPED_RULES, "--race", "asl"}), Words{"Aslan"});
    EXPECT_EQ(Completed({"generate", "--data=" KORVANE_SHIPPED_RULES, "--race=asl"}), Words{"--race=Aslan"});
}

// bash hands words on as they are typed.
TEST(Completion, TakesWordsWithQuotesBackslashesAndEquals) {
    const auto typed = [](Words words) {
        words.insert(words.begin(), {"complete", "--typed", "--", "generate", "--data", "=", KORVANE_SHIPPED_RULES});
        return test::LinesOf(RunCli(words).out);
    };
    EXPECT_EQ(typed({"--race", "Imperial\\ Human", "--career", "Sco"}), Words{"Scout"});
    EXPECT_EQ(typed({"--race", "=", "'Imperial Human'", "--career", "Sco"}), Words{"Scout"});
    EXPECT_EQ(typed({"--race", "\"Imp"}), Words{"Imperial Human"});
    EXPECT_EQ(typed({"--format", "="}).size(), 9U) << "the option waits";
}

TEST(CommandLine, NamesAreTakenInAnyCaseAndTheNearestIsNamed) {
    const Words run = {"generate", "--data", KORVANE_RULES, "--seed", "2", "--race"};
    const auto with = [&](Words more) {
        more.insert(more.begin(), run.begin(), run.end());
        return RunCli(more);
    };
    EXPECT_EQ(with({"IMPERIAL human", "--career", "scout", "--assignment", "courier"}).out,
              with({"Imperial Human", "--career", "Scout", "--assignment", "Courier"}).out);
    const auto wrong = with({"Imperial Human", "--career", "Scuot"});
    EXPECT_NE(wrong.err.find(R"(did you mean "Scout"?)"), std::string::npos) << wrong.err;
    const auto meant = [](const Words& words, const std::string& name) {
        const auto outcome = RunCli(words);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_NE(outcome.err.find("did you mean \"" + name + "\"?"), std::string::npos) << outcome.err;
    };
    meant({"genrate"}, "generate");
    meant({"generate", "--carer", "Scout"}, "--career");
    meant({"generate", "--option", "cap skils at 4"}, "Cap Skills at 4");
    meant({"balance", "--data", KORVANE_SHIPPED_RULES, "--race", "ASLN"}, "Aslan");
    meant({"new-career", "--data", KORVANE_SHIPPED_RULES, "ASLN", "Foo"}, "Aslan");
    EXPECT_EQ(RunCli({"generate", "--data", KORVANE_RULES, "--format", "JSON", "--method", "true 2d", "--option",
                      "CAP skills at 4", "--career", "scout"})
                  .status,
              0);
    const test::TempFolder empty;
    for (const auto* const verb : {"generate", "names", "worlds", "balance", "codes"}) {
        const auto outcome = RunCli({verb, "--data", empty.path().string(), "--count", "1"});
        EXPECT_EQ(outcome.err, "korvane-cli: there are no rule data in " + empty.path().string() +
                                   ": it has no file of a race (*.eri)\n");
    }
}

TEST(CommandLine, SeveralCharactersAreOneWholeForOtherPrograms) {
    const Words run = {"generate", "--data", KORVANE_RULES, "--seed", "2", "--count", "3", "--format"};
    const auto as = [&](const std::string& format, Words more = {}) {
        more.insert(more.begin(), format);
        more.insert(more.begin(), run.begin(), run.end());
        return RunCli(more).out;
    };
    const auto entry = nlohmann::json::parse(as("foundry-journal"));
    EXPECT_EQ(entry["pages"].size(), 3U);
    EXPECT_EQ(entry["name"], "Characters");
    const auto one = RunCli({"generate", "--data", KORVANE_RULES, "--format", "foundry-journal", "--name", "Jo"});
    EXPECT_EQ(nlohmann::json::parse(one.out)["name"], "Jo");
    EXPECT_TRUE(as("md", {"--first", "2"}).starts_with("---\n")) << "or nobody takes it for front matter";
    const auto table = as("csv");
    EXPECT_TRUE(table.starts_with("number,seed,name,"));
    EXPECT_EQ(table.find("number,seed,name,", 1), std::string::npos) << "headings once";
    EXPECT_FALSE(as("csv", {"--first", "4"}).starts_with("number,")) << "it goes on from another run";
    const auto document = as("json").substr(0, as("json").find('\n'));
    const auto first = nlohmann::json::parse(as("json-1").substr(0, as("json-1").find('\n')));
    const auto second = nlohmann::json::parse(document);
    EXPECT_EQ(second["version"], 2);
    EXPECT_FALSE(first.contains("version"));
    for (const auto& [key, value] : first.items())
        EXPECT_TRUE(second[key] == value || key == "skills") << key;
    std::size_t lines = 0;
    for (const auto& term : second["terms"])
        lines += term["lines"].size();
    EXPECT_EQ(lines, second["history"].size()) << "each line is of one term";
}

TEST(CommandLine, NamesAndWorldsComeAsManyAsAsked) {
    const auto names = RunCli({"names", "--data", KORVANE_SHIPPED_RULES, "--race", "aslan", "--count", "12"});
    EXPECT_EQ(std::ranges::count(names.out, '\n'), 12) << names.err;
    const auto worlds = RunCli({"worlds", "--data", KORVANE_SHIPPED_RULES, "--count", "3", "--seed", "4"});
    EXPECT_EQ(std::ranges::count(worlds.out, '\n'), 3);
    EXPECT_EQ(worlds.out, RunCli({"worlds", "--data", KORVANE_SHIPPED_RULES, "--count", "3", "--seed", "4"}).out);
}

}  // namespace
}  // namespace korvane::cli
