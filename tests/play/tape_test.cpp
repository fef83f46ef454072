// Tapes: lives that are gone on with and gone back in come out the same, and no forged journal is proved.

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <utility>

#include "base/files.h"
#include "output/journal/lines.h"
#include "play/kept_journal.h"
#include "play/life_plan.h"
#include "play/verify.h"
#include "support/temp_folder.h"

namespace korvane::play {
namespace {

using journal::Line;
using journal::Tape;

constexpr std::uint64_t kLives = 150;

bool IsQuestion(const Line& line) {
    return line.index() >= 2 && !std::holds_alternative<journal::TellLine>(line) &&
           !std::holds_alternative<journal::FileLine>(line);
}

// Answers as a tape does; with second thoughts it goes back once before each answer but the first, and once forward
// again.
class SameAnswers : public Player {
  public:
    SameAnswers(const Tape& tape, bool hasSecondThoughts) : hasSecondThoughts_(hasSecondThoughts) {
        std::ranges::copy_if(tape.lines, std::back_inserter(answers_), IsQuestion);
    }
    const LifeSteps* steps = nullptr;

    int Choose(const ChoiceQuestion& /*question*/) override { return Answer<journal::ChooseLine>(); }
    std::vector<int> Select(const ListQuestion& /*question*/) override { return Answer<journal::SelectLine>(); }
    bool Ask(const YesNoQuestion& /*question*/) override { return Answer<journal::AskLine>(); }
    void Tell(const Notice& /*notice*/) override {}
    int PickTable(const TableQuestion& /*question*/) override { return Answer<journal::TableLine>(); }
    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& /*question*/) override {
        return Answer<journal::EndOfTermLine>();
    }
    std::optional<TransferAnswer> Transfer(const TransferQuestion& /*question*/) override {
        return Answer<journal::TransferLine>();
    }
    MusterPress Muster(const MusterQuestion& /*question*/) override { return Answer<journal::MusterLine>(); }

  private:
    template <typename LineOf>
    typename LineOf::Answer Answer() {
        const auto place = steps->MomentCount();
        if (hasSecondThoughts_ && steps->MayGoBack() && back_.insert(place).second)
            throw WentBack{place - 1};
        if (hasSecondThoughts_ && place % 3 == 0 && steps->MayGoForward())
            throw WentForward();
        if (place == answers_.size())
            throw CharacterScrapped();
        return std::get<LineOf>(answers_[place]).answer;
    }

    bool hasSecondThoughts_;
    std::vector<Line> answers_;
    std::set<std::size_t> back_;
};

class Tapes : public ::testing::Test {
  protected:
    // A life of any player, with any boxes; its seed is a word.
    Tape Record(std::uint64_t number) {
        RandomStream picks(number);
        LifePlan plan;
        plan.seed = Seed("friday night");
        plan.player = static_cast<PlayerKind>(number % 3);
        plan.terms = 1 + picks.Below(5);
        for (const auto box : kAllOptions)
            plan.options.Set(box, picks.Below(3) == 0);
        Tape tape;
        Live(session, plan, number, &tape);
        return tape;
    }
    // What a life is worth: all that its journal says, but how often the player went back.
    static std::string Told(Tape tape) {
        tape.end->backs = 0;
        tape.end->document.reset();
        tape.end->journal.reset();
        return journal::JournalText(tape);
    }
    // Lives a journal on, with the answers of the whole tape.
    Tape LiveOn(Tape begun, const Tape& whole, bool hasSecondThoughts) {
        SameAnswers answers(whole, hasSecondThoughts);
        ClockDice clock;
        Session other(DataFolder(HeldPath(KORVANE_RULES), DataFolder::Reading::Once), {nullptr, nullptr, &display});
        RecordedLife life(hasSecondThoughts ? session : other, clock, answers);
        answers.steps = &life;
        life.GoOn({"begun", std::move(begun), {}, {}}, [] { return false; });
        return *life.ended();
    }

    Display display;
    Session session{DataFolder(HeldPath(KORVANE_RULES), DataFolder::Reading::Once), {nullptr, nullptr, &display}};
};

TEST_F(Tapes, CutAnywhereLivesGoOnToTheSameEnd) {
    for (std::uint64_t number = 1; number <= kLives / 3 && !HasFailure(); ++number) {
        const auto tape = Record(number);
        for (std::size_t cut = number % 10; cut < tape.lines.size(); cut += 10) {
            auto begun = tape;
            begun.end.reset();
            begun.lines.resize(cut, journal::RollLine{});
            EXPECT_EQ(journal::JournalText(LiveOn(std::move(begun), tape, false)), journal::JournalText(tape))
                << number << " cut after " << cut;
        }
    }
}

TEST_F(Tapes, GoneBackInEverywhereLivesComeToTheSameEnd) {
    std::int64_t backs = 0;
    for (std::uint64_t number = 1; number <= kLives && !HasFailure(); ++number) {
        const auto tape = Record(number);
        auto begun = tape;
        begun.end.reset();
        begun.lines.clear();
        const auto lived = LiveOn(std::move(begun), tape, true);
        EXPECT_EQ(Told(lived), Told(tape)) << number;
        backs += lived.backs;
    }
    EXPECT_GT(backs, 1000);
}

// Verifies a journal on the shipped rules, or on others; nothing for one that can't be read.
std::optional<Verdict> VerdictOn(const std::string& text, const HeldPath& rules = HeldPath(KORVANE_RULES)) {
    Display display;
    Session session(DataFolder(rules, DataFolder::Reading::Once), {nullptr, nullptr, &display});
    try {
        return Verify(session, journal::ReadJournal("life.jsonl", text), {}).verdict;
    } catch (const journal::JournalError&) {
        return std::nullopt;
    }
}

// Forges a line in one of many ways. Returns whether anything is another now.
bool Forge(std::vector<std::string>& lines, RandomStream& chance) {
    const auto place = 1 + static_cast<std::size_t>(chance.Below(static_cast<int>(lines.size()) - 1));
    const auto before = lines;
    const auto replace = [&](const std::string& part, std::size_t skipped) {
        if (const auto at = lines[place].find(part); at != std::string::npos)
            lines[place][at + part.size() + skipped] = static_cast<char>('1' + chance.Below(6));
    };
    switch (chance.Below(6)) {
        case 0:
            replace("\"result\":", 0);
            break;
        case 1:
            replace("\"picked\":", 0);
            replace("\"answer\":", 0);
            break;
        case 2:
            lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(place));
            break;
        case 3:
            if (place + 1 < lines.size())
                std::swap(lines[place], lines[place + 1]);
            break;
        case 4:
            replace("\"sha256\":\"", 5);
            break;
        default:
            lines.back().at(lines.back().find("\"backs\":") + 8) = '7';
            replace("\"document\":\"", 5);
            break;
    }
    return lines != before;
}

TEST_F(Tapes, NoForgedJournalIsProvedAndAllHonestOnesAre) {
    RandomStream chance(5);
    int forged = 0;
    for (std::uint64_t number = 1; number <= kLives && !HasFailure(); ++number) {
        const auto honest = journal::JournalText(Record(number));
        EXPECT_EQ(VerdictOn(honest), Verdict::Proved) << number;
        auto lines = test::LinesOf(honest);
        if (!Forge(lines, chance))
            continue;
        std::string text;
        for (const auto& line : lines)
            text += line + "\n";
        EXPECT_NE(VerdictOn(text), Verdict::Proved) << text;
        ++forged;
    }
    EXPECT_GT(forged, static_cast<int>(kLives / 2));
}

TEST_F(Tapes, EachFaultHasItsVerdict) {
    auto number = std::uint64_t{3};
    auto tape = Record(number);
    while (!tape.end->document)
        tape = Record(++number);
    const auto text = journal::JournalText(tape);
    const test::TempFolder rules;
    rules.CopyRules();
    const auto career = "Imperial Human-" + tape.start.career + ".ecf";
    auto edited = rules.Read(career);
    edited.replace(edited.find("[Cash]\n") + 7, 1, "9");
    std::filesystem::remove(rules.path() / career);
    rules.Write(career, edited);
    EXPECT_EQ(VerdictOn(text, rules.held()), Verdict::RulesDiffer);
    EXPECT_EQ(VerdictOn(text.substr(0, text.rfind("{\"end\""))), Verdict::Unfinished);
    EXPECT_EQ(VerdictOn(text + "{}\n"), Verdict::AnswerDiffers) << "after the end";
    auto other = tape;
    other.end->document = std::string(64, '0');
    other.end->journal = journal::JournalDigest(other, *other.end);
    EXPECT_EQ(VerdictOn(journal::JournalText(other)), Verdict::ResultDiffers);
    const auto die = std::ranges::find_if(other.lines, [](const Line& line) { return line.index() == 0; });
    auto& roll = std::get<journal::RollLine>(*die);
    roll.answer = roll.answer % 6 + 1;
    EXPECT_EQ(VerdictOn(journal::JournalText(other)), Verdict::DieDiffers);
    EXPECT_EQ(VerdictOn(text.substr(0, text.size() / 2)), Verdict::Unfinished) << "cut within a line";
    auto doubled = text;
    doubled.replace(doubled.find("\"result\":"), 9, "\"result\":6,\"result\":");
    EXPECT_EQ(VerdictOn(doubled), Verdict::AnswerDiffers) << "not as it was written";
    const auto journal = journal::ReadJournal("", text);
    EXPECT_EQ(Verify(session, journal, Seed("saturday night")).verdict, Verdict::DieDiffers);
    EXPECT_EQ(Verify(session, journal, Seed("friday night")).verdict, Verdict::Proved);
}

TEST_F(Tapes, OfTheFirstVersionLiveAgainAsTheyDidThen) {
    const test::TempFolder rules;
    rules.CopyRules();
    const std::filesystem::path kept(KORVANE_VERSION_1);
    std::filesystem::copy_file(kept / "Imperial Human.eri", rules.path() / "Imperial Human.eri",
                               std::filesystem::copy_options::overwrite_existing);
    Session then(DataFolder(rules.held()), {nullptr, nullptr, &display});
    for (const std::string name : {"automatic", "longest", "scrapped"}) {
        auto journal = ReadJournalFile(kept / (name + ".jsonl"));
        journal::TapeDeck deck(then, journal.tape, nullptr, nullptr, name);
        const bool finished = LiveAgain(then, journal.tape, deck).finished();
        EXPECT_EQ(Verify(then, journal, {}).verdict, Verdict::Consistent);
        if (!finished)
            continue;
        auto document = ReadBytes(kept / (name + ".json"), "a document");
        document.resize(document.rfind('}'));
        EXPECT_TRUE(CharacterDocument(then, LabelsOf(journal.tape)).starts_with(document)) << "but for what is new";
    }
}

TEST_F(Tapes, KeptJournalsAreGoneOnWithAfterAnyByte) {
    const test::TempFolder folder;
    const auto tape = Record(4);
    const auto text = journal::JournalText(tape);
    const auto path = folder.path() / "life.jsonl";
    for (auto cut = text.find('\n') + 1; cut < text.rfind("{\"end\""); cut += 13) {
        folder.Write("life.jsonl", text.substr(0, cut));
        const auto read = ReadJournalFile(path);
        EXPECT_FALSE(read.IsDamaged());
        KeptJournal keeper(path, read, [](const std::string& error) { ADD_FAILURE() << error; });
        SameAnswers answers(tape, cut % 2 == 0);
        ClockDice clock;
        RecordedLife life(session, clock, answers);
        answers.steps = &life;
        life.keeper = &keeper;
        life.GoOn(read, [] { return false; });
        EXPECT_EQ(folder.Read("life.jsonl"), journal::JournalText(*life.ended())) << cut;
        EXPECT_EQ(Told(*life.ended()), Told(tape)) << cut;
    }
}

}  // namespace
}  // namespace korvane::play
