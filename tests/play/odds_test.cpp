// What follows from an answer: against chances that were worked out by hand.

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <utility>

#include "character/seams_guard.h"
#include "play/life.h"
#include "play/odds_table.h"
#include "play/sensible_player.h"
#include "support/temp_folder.h"

namespace korvane::play {
namespace {

struct Halt {};

// Answers with sense, up to a question.
class HaltingPlayer : public SensiblePlayer {
  public:
    HaltingPlayer(Session& session, std::uint64_t number, const journal::Tape& tape)
        : SensiblePlayer(session, RandomStream(number), 4), session_(session), tape_(tape) {}

    std::string_view title;  // of the choice to halt at; empty: the end of a term
    std::optional<OpenQuestion> met;

    int Choose(const ChoiceQuestion& question) override {
        if (!title.empty() && question.title == title)
            HaltAt(AlternativesOf(question));
        return SensiblePlayer::Choose(question);
    }
    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override { HaltAt(AlternativesOf(question)); }

  private:
    [[noreturn]] void HaltAt(std::vector<Alternative> alternatives) {
        met = QuestionIn(session_, tape_, std::move(alternatives));
        throw Halt();
    }

    Session& session_;
    const journal::Tape& tape_;
};

// The ways of the 36 in which two dice and a modifier reach a target.
double Chance(int target, int modifier) {
    int ways = 0;
    for (int one = 1; one <= 6; ++one)
        for (int other = 1; other <= 6; ++other)
            ways += one + other + modifier >= target ? 1 : 0;
    return ways / 36.0;
}

class OddsOfLives : public ::testing::Test {
  protected:
    OddsOfLives() {
        folder.CopyRules();
        // Of six mishaps three injure, two throw out, and one leads into prison; nothing else happens to anybody.
        for (const std::string career : {"Scout", "Prisoner"})
            Rewrite("Imperial Human-" + career + ".ecf", [](const std::string& heading, int row, std::string& line) {
                if (heading.starts_with("[Skills]"))
                    line = "Recon";
                if (heading == "[Events]")
                    line = "Quiet./";
                if (heading == "[Mishaps]")
                    line = row < 3 ? "Hurt./INJR NOEJEC" : row < 5 ? "Out./" : "Caught./IMPRISON";
                if (line.starts_with("Qualification:"))
                    line = "Qualification:D+ex5";
            });
        Rewrite("Imperial Human-Scout-Courier.eas", [](const std::string& heading, int, std::string& line) {
            if (heading == "[Skills]")
                line = "Recon";
            if (line.starts_with("Survive:"))
                line = "Survive:D+ex6";
            if (line.starts_with("Advance:"))
                line = "Advance:Int+6";
        });
    }

    template <typename Change>
    void Rewrite(const std::string& file, const Change& change) {
        std::string text;
        std::string heading;
        int row = 0;
        for (auto line : test::LinesOf(folder.Read(file))) {
            if (line.starts_with("[")) {
                heading = line;
                row = 0;
            } else {
                change(heading, row++, line);
            }
            text += line + "\n";
        }
        folder.Write(file, text);
    }

    // A life in the Scouts, up to a question; nothing for one that doesn't come to it there. Leaves it in the session.
    std::optional<OpenQuestion> LifeUpTo(std::string_view title, std::uint64_t number) {
        const SeamsGuard guard(session.seams);
        journal::Tape tape;
        SeededDice dice(99, number);
        HaltingPlayer player(session, number, tape);
        player.title = title;
        session.seams.dice = &dice;
        session.seams.player = &player;
        Select(session, "Imperial Human", "Scout", "Courier");
        try {
            LiveRecorded(session, tape, {Seed(std::uint64_t{99}), number});
        } catch (const Halt&) {
        }
        return session.selection.career == "Scout" ? player.met : std::nullopt;
    }
    OpenQuestion FirstUpTo(std::string_view title) {
        std::uint64_t number = 1;
        auto question = LifeUpTo(title, number);
        while (!question)
            question = LifeUpTo(title, ++number);
        return *question;
    }
    Odds OddsOf(OpenQuestion question, std::uint64_t lives = 600) {
        Odds odds(other, std::move(question));
        odds.LiveUpTo(lives);
        return odds;
    }

    test::TempFolder folder;
    Display display;
    Session session{DataFolder(folder.held()), {nullptr, nullptr, &display}};
    Session other{DataFolder(folder.held(), DataFolder::Reading::Once), {nullptr, nullptr, &display}};
};

TEST_F(OddsOfLives, LieWithinTheirBoundsOfWhatIsWorkedOutByHand) {
    int situations = 0;
    int within = 0;
    for (std::uint64_t number = 1; situations < 20; ++number) {
        auto question = LifeUpTo({}, number);
        if (!question)
            continue;
        question->alternatives.erase(question->alternatives.begin() + 1);
        const auto& character = session.character;
        const double survives = Chance(6, character.CharacteristicDM[kDex] + character.SurvivalDM);
        const double rises = Chance(6, character.CharacteristicDM[kInt] + character.AdvancementDM);
        const double fails = 1 - survives;
        const auto odds = OddsOf(*question, 250);
        const auto& again = odds.figures().outlooks.front();
        EXPECT_EQ(again.At(Figure::Survives).Number()->margin, 0);
        EXPECT_NEAR(again.At(Figure::Survives).mean(), survives, 1e-9);
        const std::array<std::pair<Figure, double>, 4> truths = {
            {{Figure::Leaves, fails * 3 / 6},  // out, or into prison
             {Figure::Injured, fails * 3 / 6},
             {Figure::Imprisoned, fails * 1 / 6},
             {Figure::Promoted, (survives + fails * 3 / 6) * rises}}};
        const auto& [figure, truth] = truths.at(static_cast<std::size_t>(situations++ % 4));
        const auto estimate = *again.At(figure).Share();
        within += std::abs(estimate.value - truth) <= estimate.margin ? 1 : 0;
        // Who musters out has no next term, and no more years.
        EXPECT_EQ(odds.figures().outlooks.back().At(Figure::Survives).count(), 0U);
        EXPECT_EQ(odds.figures().outlooks.back().At(Figure::Years).mean(), 0);
    }
    EXPECT_GE(within, 19);
}

TEST_F(OddsOfLives, SingleRollIsExact) {
    const auto odds = OddsOf(FirstUpTo("Select Pre-Career Education"), 50);
    const auto& enlists = odds.figures().outlooks.front();
    EXPECT_EQ(enlists.roll, "Dex 5+");
    const auto table = TableOf(odds.figures());
    ASSERT_FALSE(table.columns.empty());
    EXPECT_EQ(table.columns.front(), "This roll");
    const double chance = Chance(5, session.character.CharacteristicDM[kDex]);
    EXPECT_EQ(table.rows.front().cells.front(), "Dex 5+: " + ChanceText({chance, 0}));
}

TEST_F(OddsOfLives, AreTheSameAgainAndStopWhenTheyAreNotWanted) {
    const auto question = FirstUpTo({});
    const auto first = TableOf(OddsOf(question, 200).figures());
    const auto second = TableOf(OddsOf(question, 200).figures());
    for (std::size_t i = 0; i < first.rows.size(); ++i)
        EXPECT_EQ(first.rows[i].sentence, second.rows[i].sentence);
    bool stop = false;
    Odds odds(other, question);
    odds.LiveUpTo(2000, [&] { return std::exchange(stop, true); });  // stops in the middle of the first
    EXPECT_EQ(odds.figures().lives, 0U);
}

OddsFigures Figures(const std::vector<std::pair<double, double>>& levels) {
    // Of each answer the levels of two lives that take turns; its lead is on what all of them bring.
    OddsFigures figures;
    figures.lives = 400;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        figures.captions.emplace_back(1, static_cast<char>('A' + i));
        auto& outlook = figures.outlooks.emplace_back();
        for (int life = 0; life < 400; ++life) {
            const auto of = [&](const auto& answer) { return life % 2 == 0 ? answer.first : answer.second; };
            double mean = 0;
            for (const auto& answer : levels)
                mean += of(answer) / static_cast<double>(levels.size());
            outlook.figures.at(static_cast<std::size_t>(Figure::Levels)).Add(of(levels[i]));
            outlook.leads.at(static_cast<std::size_t>(Figure::Levels)).Add(of(levels[i]) - mean);
        }
    }
    return figures;
}

TEST(OddsTexts, JudgeOnlyWhatLuckDoesNotBring) {
    const auto judged = [](const std::vector<std::pair<double, double>>& levels) {
        return TableOf(Figures(levels)).judgements;
    };
    using Lines = std::vector<std::string>;
    EXPECT_EQ(judged({{5, 3}, {4, 2}}), Lines{"Clearly best for skills: A"});
    EXPECT_EQ(judged({{6, 2}, {2, 3}, {2, 2}}), Lines{"Clearly best for skills: A"});
    EXPECT_EQ(judged({{9, 1}, {1, 8.8}, {1, 1}}), Lines{"Too close to tell: skills"});
    EXPECT_TRUE(TableOf(Figures({{4, 2}, {2, 4}})).columns.empty()) << "the same in the mean";
    EXPECT_TRUE(TableOf(Figures({{4, 2}, {3.9, 2}})).columns.empty()) << "not worth a word";
    auto one_has_it = Figures({{4, 2}, {4, 2}});
    one_has_it.outlooks[1] = {};
    EXPECT_EQ(TableOf(one_has_it).columns.size(), 1U);
    EXPECT_TRUE(TableOf(one_has_it).judgements.empty()) << "there is nothing to compare it with";
    EXPECT_EQ(TableOf(one_has_it).rows[1].cells.front(), "–");
}

TEST(OddsTexts, TellNoMoreThanIsKnown) {
    EXPECT_EQ(ChanceText({30.0 / 36, 0}), "83 % (30 of 36)");
    EXPECT_EQ(ChanceText({0.584, 0.021}), "58 % ± 3");  // what rounding takes goes to the margin
    EXPECT_EQ(ChanceText({0, 0.018}), "under 2 %");
    EXPECT_EQ(ChanceText({0.999, 0.002}), "over 99 %");
    EXPECT_EQ(WordFor({0.7, 0.05}), "likely");
    EXPECT_EQ(WordFor({0.6, 0.05}), "about even or likely");
    EXPECT_EQ(WordFor({0.5, 0.45}), "hard to tell from so few lives");
    EXPECT_EQ(NumberText({3.42, 0.11}, false), "3.4 ± 0.2");
    EXPECT_EQ(NumberText({-0.5, 0}, false), "-0.5");
    EXPECT_EQ(NumberText({12340, 130}, true), "Cr12,300 ± 200");
    EXPECT_EQ(NumberText({0, 0}, true), "Cr0");
    Sample few;
    few.Add(13);
    EXPECT_FALSE(few.Number()) << "one life says nothing";
    Sample sample;
    for (int i = 0; i < 200; ++i)
        sample.Add(1);
    EXPECT_GT(sample.Share()->margin, 0.01);  // of 200 lives that all came through nobody knows that all do
    EXPECT_EQ(sample.Number()->margin, 0);
}

}  // namespace
}  // namespace korvane::play
