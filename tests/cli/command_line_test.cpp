// The command line as a whole, in this process: exit statuses, messages, repeatable runs.

#include <algorithm>
#include <array>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>

#include "cli/run_cli.h"
#include "cli/terminal_player.h"
#include "nlohmann/json.hpp"
#include "support/temp_folder.h"

namespace korvane::cli {
namespace {

using test::LinesOf;

Outcome Generate(std::vector<std::string> more) {
    more.insert(more.begin(), {"generate", "--data", KORVANE_RULES, "--seed", "7"});
    return RunCli(more);
}

TEST(CommandLine, CharacterDependsOnSeedAndNumberAlone) {
    const auto three = LinesOf(Generate({"--count", "3", "--format", "json"}).out);
    const auto five = LinesOf(Generate({"--count", "5", "--format", "json"}).out);
    ASSERT_EQ(three.size(), 3U);
    ASSERT_EQ(five.size(), 5U);
    EXPECT_TRUE(std::equal(three.begin(), three.end(), five.begin()));
    EXPECT_NE(three[0], three[1]);
    EXPECT_NE(three[0],
              LinesOf(RunCli({"generate", "--data", KORVANE_RULES, "--seed", "8", "--format", "json"}).out)[0]);
}

TEST(CommandLine, UnknownNamesListWhatThereIs) {
    const auto race = Generate({"--race", "Elf"});
    EXPECT_EQ(race.status, 1);
    EXPECT_NE(race.err.find("unknown race \"Elf\""), std::string::npos) << race.err;
    EXPECT_NE(race.err.find("Imperial Human"), std::string::npos) << race.err;
    EXPECT_NE(Generate({"--career", "Pirate"}).err.find("Merchant, Navy, Prisoner, Scout"), std::string::npos);
    EXPECT_NE(Generate({"--career", "Scout", "--assignment", "Cook"}).err.find("Courier, Explorer, Surveyor"),
              std::string::npos);
    EXPECT_NE(Generate({"--option", "Fly"}).err.find("Cap Skills at 4"), std::string::npos);
    EXPECT_NE(Generate({"--method", "4D"}).err.find("Roll 3 drop 1, True 2D"), std::string::npos);
    EXPECT_EQ(Generate({"--method", "4D"}).status, 1);
    EXPECT_EQ(Generate({"--format", "pdf"}).status, 1);
    EXPECT_EQ(Generate({"--player", "random", "--option", "Automatic Generation"}).status, 1);
}

TEST(CommandLine, FilesInFoldersHoldWhatTheStreamShows) {
    const test::TempFolder folder;
    const auto outcome = Generate({"--count", "2", "--format", "json", "--out", (folder.path() / "out").string(),
                                   "--journal", (folder.path() / "journals").string()});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    const auto shown = Generate({"--count", "2", "--format", "json"}).out;
    EXPECT_EQ(folder.Read("out/character-1.json") + folder.Read("out/character-2.json"), shown);
    const auto replayed = RunCli({"replay", (folder.path() / "journals/character-2.jsonl").string(), "--data",
                                  KORVANE_RULES, "--format", "json"});
    EXPECT_EQ(replayed.status, 0);
    EXPECT_EQ(replayed.out, folder.Read("out/character-2.json"));
}

// A copy of the shipped data in which one file is changed.
struct Broken {
    test::TempFolder folder;
    Broken() { folder.CopyRules(); }
    Outcome Generate(std::vector<std::string> more = {}) const {
        more.insert(more.begin(), {"generate", "--seed", "1", "--data", folder.path().string()});
        return RunCli(more);
    }
};

TEST(CommandLine, MissingAssignmentFileIsNamed) {
    const Broken data;
    std::filesystem::remove(data.folder.path() / "Imperial Human-Army-Infantry.eas");
    const auto one = data.Generate({"--career", "Army", "--assignment", "Infantry"});
    EXPECT_EQ(one.status, 1);
    EXPECT_NE(one.err.find("Imperial Human-Army-Infantry.eas: no such file"), std::string::npos) << one.err;
    EXPECT_NE(one.err.find("Cavalry"), std::string::npos) << one.err;
    for (const auto& entry : std::filesystem::directory_iterator(data.folder.path()))
        if (entry.path().filename().string().starts_with("Imperial Human-Army-"))
            std::filesystem::remove(entry.path());
    const auto none = data.Generate({"--career", "Army"});
    EXPECT_EQ(none.status, 1);
    EXPECT_NE(none.err.find("there is no assignment ("), std::string::npos) << none.err;
}

TEST(CommandLine, TheHandbookOfCodesIsTheOneInTheDocuments) {
    std::ifstream page(KORVANE_DOCS "/codes.md", std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(page)), {});
    EXPECT_EQ(LinesOf(RunCli({"codes", "--describe"}).out), LinesOf(text))
        << "make it anew: korvane-cli codes --describe >docs/codes.md";
    const auto listed = LinesOf(RunCli({"codes"}).out);
    EXPECT_EQ(listed.front() + listed.back(), "mishap SINJevent  SCOCOURIER");
}

TEST(CommandLine, ReplayTellsWhatAFileErrorEndedAndWhatDiverged) {
    const Broken data;
    std::filesystem::remove(data.folder.path() / "Imperial Human-Scout-Courier.eas");
    data.folder.Write("Imperial Human-Scout-Courier.eas", "cut\n");
    const auto journals = (data.folder.path() / "journals").string();
    data.Generate(
        {"--career", "Army", "--assignment", "Infantry", "--count", "500", "--format", "none", "--journal", journals});
    int replayed = 0;
    for (const auto& entry : std::filesystem::directory_iterator(journals)) {
        const auto outcome = RunCli({"replay", entry.path().string(), "--data", data.folder.path().string()});
        if (outcome.status == 0)
            continue;
        ++replayed;
        EXPECT_EQ(outcome.status, 1);
        EXPECT_NE(outcome.err.find("file error: "), std::string::npos) << outcome.err;
        EXPECT_EQ(RunCli({"replay", entry.path().string(), "--data", KORVANE_RULES}).status, 2) << "whole data goes on";
    }
    EXPECT_EQ(replayed, 1) << "a malformed file ends the run";
}

// A person who takes the first or the second of everything by turns, or nothing where more is wanted, says yes, stays
// some terms, and ends a mustering out when nothing is left in it.
class Person : public std::streambuf {
  public:
    explicit Person(const std::ostringstream& screen) : screen_(screen) {}

  protected:
    int_type underflow() override {
        constexpr int kPatience = 20000;
        if (++turn_ > kPatience)
            return traits_type::eof();
        const auto shown = screen_.str();
        const auto tail = shown.substr(shown.size() - std::min<std::size_t>(shown.size(), 200));
        const auto asks = [&](const char* text) { return tail.find(text) != std::string::npos; };
        line_ = std::array{"1\n", "2\n", "y\n"}.at(static_cast<std::size_t>(turn_ % 3));
        if (asks("2) Material  (not now)"))
            line_ = "4\n";
        else if (asks("Too few items"))
            line_ = "cancel\n";
        else if (asks("4) Scrap and Restart"))
            line_ = turn_ % 4 == 0 ? "3\n" : "1\n";
        setg(line_.data(), line_.data(), line_.data() + line_.size());
        return traits_type::to_int_type(line_.front());
    }

  private:
    const std::ostringstream& screen_;
    std::string line_;
    int turn_ = 0;
};

TEST(CommandLine, PlayedLifeReplaysToTheSameCharacter) {
    const test::TempFolder folder;
    const auto journal = (folder.path() / "life.jsonl").string();
    std::ostringstream screen;
    std::ostringstream errors;
    Person person(screen);
    std::istream keys(&person);
    Streams streams{keys, screen, errors};
    ASSERT_EQ(
        RunCommandLine({"play", "--data", KORVANE_RULES, "--race", "Imperial Human", "--journal", journal}, streams), 0)
        << errors.str() << screen.str().substr(screen.str().size() - std::min<std::size_t>(screen.str().size(), 1500));
    const auto replayed = RunCli({"replay", journal, "--luck", "--data", KORVANE_RULES});
    EXPECT_EQ(replayed.status, 0) << replayed.err;
    ASSERT_FALSE(replayed.out.empty());
    EXPECT_TRUE(screen.str().ends_with("\n" + replayed.out)) << screen.str();
}

TEST(CommandLine, PlayKeepsEachAnswerAtOnceAndNeedsAJournalThatCanBeKept) {
    const test::TempFolder folder;
    const auto file = folder.Write("file", "something");
    const auto play = [&](const std::string& journal, const std::string& input) {
        return RunCli({"play", "--data", KORVANE_RULES, "--career", "Army", "--assignment", "Infantry", "--race",
                       "Imperial Human", "--journal", journal},
                      input);
    };
    EXPECT_EQ(play((file / "x.jsonl").string(), "1\n").out, "") << "before the first question";
    EXPECT_NE(play(file.string(), "1\n").err.find("expected a JSON object"), std::string::npos);
    play((folder.path() / "life.jsonl").string(), "2\n1\n");
    const auto lines = LinesOf(folder.Read("life.jsonl"));
    EXPECT_GT(lines.size(), 10U) << "the input ended, its lines are there";
    EXPECT_EQ(std::ranges::count_if(lines, [](const auto& line) { return line.starts_with("{\"journal\""); }), 1)
        << "what was rolled away isn't";
}

TEST(CommandLine, NumbersAndEmptyValuesAreTakenAtTheirWord) {
    const auto fails = [](const std::vector<std::string>& arguments, const std::string& sentence) {
        const auto outcome = RunCli(arguments);
        EXPECT_EQ(outcome.status, 1) << arguments.back();
        EXPECT_NE(outcome.err.find(sentence), std::string::npos) << outcome.err;
    };
    fails({"codes", "--count", "-1"}, "is not a whole number from 0 to 1000000000");
    fails({"generate", "--seed", "18446744073709551616"}, "is no whole number from 0 to 18446744073709551615");
    fails({"generate", "--count=0"}, "\"0\" is not a whole number from 1 to");
    fails({"generate", "--name=", "--pdf"}, "go with \"--format html\" alone");
    const test::TempFolder folder;
    const auto named = RunCli({"generate", "--data", KORVANE_RULES, "--seed", "7", "--format", "html", "--out",
                               folder.path().string(), "--name=", "--terms", "1"});
    EXPECT_EQ(named.status, 0) << named.err;
    EXPECT_TRUE(std::filesystem::exists(folder.path() / ".htm")) << "a name without letters, not \"--terms\"";
}

TEST(CommandLine, CodesAreCountedOverLives) {
    const auto counted = RunCli({"codes", "--data", KORVANE_RULES, "--count", "50"});
    EXPECT_EQ(counted.status, 0);
    EXPECT_TRUE(std::regex_search(counted.out, std::regex("event  LIFE +[1-9]"))) << counted.out;
    const Broken data;
    data.folder.Write("Imperial Human-Scout-Courier.eas", "short");
    EXPECT_EQ(RunCli({"codes", "--data", data.folder.path().string(), "--count", "50"}).status, 1);
}

TEST(CommandLine, PlayTakesScrapHoldsLimitsAndChangesOptions) {
    std::istringstream in(
        "none\n3 3 4\n9\ncancel\nscrap\nn\n2\nscrap\ny\n5\n7\n10\n1\nquit\nn\n4\nscrap\nquit\ny\nquit\n");
    std::ostringstream out;
    const Session session(DataFolder(HeldPath("")), {});
    WrappedOut written(out, 0);
    TerminalPlayer player(session, in, written);
    player.BeginLife();
    const std::vector<std::string_view> items = {"Admin", "Art", "Drive", "Medic"};
    EXPECT_TRUE(player.Select({"Take", 1, 1, items}).empty());
    for (const auto* const refusal : {"Too many items selected; limit is 1", "Please name items of the list."})
        EXPECT_NE(out.str().find(refusal), std::string::npos) << refusal;
    EXPECT_EQ(player.Choose({"Pick", items}), 2) << "after a No to the scrapping";
    EXPECT_THROW(player.Choose({"Pick", items}), CharacterScrapped);
    const auto answer = player.EndOfTerm({2, {}});
    EXPECT_TRUE(answer.options[Option::CapSkillsAt4]);
    EXPECT_EQ(answer.choice, EndOfTermChoice::ReEnlist);
    EXPECT_EQ(player.Choose({"Pick", items}), 4) << "after a No to the leaving";
    EXPECT_THROW(player.Choose({"Pick", items}), PlayerLeft) << "asked for in the question about the scrapping";
    EXPECT_THROW(player.Choose({"Pick", items}), PlayerLeft) << "the input ended at the question";
}

TEST(CommandLine, OddsCompareCareersForACharacter) {
    const auto careers = RunCli({"odds", "--data", KORVANE_RULES, "--lives", "60", "--career", "army", "--set",
                                 "dex=12", "--terms", "2", "--format", "json"});
    ASSERT_EQ(careers.status, 0) << careers.err;
    const auto told = nlohmann::json::parse(careers.out);
    EXPECT_EQ(told["characteristics"]["Dex"], 12);
    EXPECT_EQ(told["characteristics"]["Str"], 7) << "the average of two dice";
    EXPECT_EQ(told["terms"], 2);
    const auto& places = told["places"];
    ASSERT_GT(places.size(), 2U);
    EXPECT_TRUE(places[0]["assignment"].is_null());
    EXPECT_EQ(places[1]["assignment"], "Cavalry");
    EXPECT_NE(places[0]["bestSkill"], "") << "of all its assignments";
    EXPECT_GT(places[0]["accepted"]["value"], 0.3);
    EXPECT_EQ(places[0]["accepted"], places[1]["accepted"]) << "as the same dice fall, five assignments tell no more";
    EXPECT_TRUE(RunCli({"odds", "--data", KORVANE_RULES, "--lives", "5"}).out.find("  Courier ") != std::string::npos);
    EXPECT_EQ(RunCli({"odds", "--data", KORVANE_RULES, "--set", "Dxx=9"}).err,
              "korvane-cli: unknown characteristic \"Dxx\"; did you mean \"Dex\"?\n");
    EXPECT_EQ(RunCli({"odds", "--data", KORVANE_RULES, "--set", "Dex=much"}).status, 1);
    EXPECT_EQ(RunCli({"odds", "--data", KORVANE_RULES, "--career", "Scuot"}).err,
              "korvane-cli: unknown career \"Scuot\"; did you mean \"Scout\"?\n");
}

TEST(CommandLine, LuckIsToldWhereItIsAskedFor) {
    const std::vector<std::string> run = {"generate", "--data", KORVANE_RULES, "--seed", "4", "--count", "1"};
    auto with = run;
    with.emplace_back("--luck");
    const auto text = RunCli(with).out;
    const auto plain = RunCli(run).out;
    EXPECT_TRUE(text.starts_with(plain)) << "all else is as it was";
    EXPECT_TRUE(text.substr(plain.size()).starts_with("Luck: ")) << text.substr(plain.size());
    with.insert(with.end(), {"--format", "json"});
    const auto luck = nlohmann::json::parse(RunCli(with).out)["luck"];
    EXPECT_EQ(luck["expected"], 7 * luck["rolls"].get<int>());
    EXPECT_LE(luck["worst"]["roll"], luck["best"]["roll"]);
}

TEST(CommandLine, ThreadsAndPartsOfARunGiveWhatOneThreadGives) {
    for (const std::string format : {"json", "text"}) {
        const auto whole = Generate({"--count", "300", "--jobs", "1", "--format", format}).out;
        EXPECT_EQ(Generate({"--count", "300", "--jobs", "3", "--format", format}).out, whole);
        const auto first = Generate({"--count", "150", "--jobs", "2", "--format", format}).out;
        EXPECT_EQ(first + Generate({"--first", "151", "--count", "150", "--format", format}).out, whole);
    }
    const std::vector<std::string> wish = {"--want",  "age < 40", "--want",   "Pilot >= 1",
                                           "--count", "5",        "--format", "json"};
    const auto with = [&](std::vector<std::string> more) {
        more.insert(more.end(), wish.begin(), wish.end());
        return Generate(more);
    };
    const auto found = with({"--jobs", "1"});
    const auto lines = LinesOf(found.out);
    ASSERT_EQ(lines.size(), 5U);
    const auto again = with({"--jobs", "3"});
    EXPECT_EQ(again.out, found.out);
    EXPECT_EQ(again.err, found.err);
    EXPECT_NE(found.err.find("5 found in "), std::string::npos) << found.err;
    const auto number = nlohmann::json::parse(lines[4])["number"].dump();
    EXPECT_EQ(Generate({"--first", number, "--format", "json"}).out, lines[4] + "\n") << "made again alone";
    const auto none = Generate({"--want", "age > 200", "--tries", "100", "--format", "json"});
    EXPECT_EQ(none.status, kFailure);
    EXPECT_EQ(none.err, "0 found in 100 lives\n");
}

}  // namespace
}  // namespace korvane::cli
