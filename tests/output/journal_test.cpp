// The journal: what is written for each kind of request, replay, divergences, malformed journals, and lives recorded
// and replayed.

#include <algorithm>
#include <memory>

#include "character/characteristics.h"
#include "engine/mustering_out.h"
#include "engine/selection.h"
#include "engine/transfer.h"
#include "output/character_document.h"
#include "output/journal/lines.h"
#include "output/journal/read_journal.h"
#include "output/journal/tape_deck.h"
#include "play/life_plan.h"
#include "skills/choice.h"
#include "skills/list_choice.h"
#include "skills/skill_tables.h"
#include "support/every_code_data.h"
#include "support/temp_folder.h"
#include "support/world.h"

namespace korvane {
namespace {

using journal::Divergence;
using journal::TapeDeck;
using test::Drawn;
using test::LinesOf;
using test::Rolled;

const std::string kHeader =
    R"({"journal":1,"race":"Imperial Human","career":"Army","assignment":"Infantry","method":"True 2D ","options":[]})";

// A deck before the tape of a journal.
struct Replay {
    explicit Replay(const std::vector<std::string>& lines) {
        auto text = kHeader;
        for (const auto& line : lines)
            text += "\n" + line;
        read = journal::ReadJournal("life.jsonl", text);
    }
    void ExpectEnd(journal::EndKind kind, const std::string& error = {}) const {
        deck.ExpectEnd({kind, error, {}, {}, {}, {}});
    }

    Session session{DataFolder(HeldPath(KORVANE_RULES)), {}};
    journal::Journal read;
    TapeDeck deck{session, read.tape, nullptr, nullptr, "life.jsonl"};
};
struct Reading {
    explicit Reading(const std::vector<std::string>& lines) : replay(std::make_unique<Replay>(lines)) {}
    TapeDeck* operator->() const { return &replay->deck; }
    std::unique_ptr<Replay> replay;
};

// A world whose dice and player are recorded.
class Journal : public test::World {
  protected:
    Journal() {
        tape.start.version = 1;
        session.seams.dice = &recorder;
        session.seams.player = &recorder;
    }

    journal::Tape tape;
    TapeDeck recorder{session, tape, &dice, &player};
};

TEST_F(Journal, EveryKindOfRequestIsALine) {
    tape.start = play::StartOf(session, {});
    tape.start.version = 1;
    tape.start.dice.reset();
    dice.Expect({Rolled(2, 6, 7), Drawn(3, 1)});
    Roll(session, 2, 6);
    Roll(session, 0, 6);
    recorder.Draw(3);
    player.ExpectChoice("Select a Skill", "Stealth/Survival", 1);
    ChooseOption(session, "Select a Skill", std::vector<std::string_view>{"Stealth", "Survival"});
    player.ExpectList("Take", "Admin=2/Medic=1", {2});
    const std::vector<std::string_view> items = {"Medic=1", "Admin=2"};
    AskForItems(session, 1, 1, "Take", ListItems(items));
    player.ExpectList("Take", "Admin=2/Medic=1", {});
    AskForItems(session, 2, 1, "Take", ListItems(items));
    player.ExpectAsk("Accept?", true).ExpectAsk("Really?", false).ExpectTell("Released from prison");
    AskYesNo(session, {"Accept?"});
    AskYesNo(session, {"Really?"});
    Tell(session, "Released from prison");
    SetCharacteristic(kEdu, 2);
    player.ExpectTable(5);
    dice.Expect({Rolled(1, 6, 2)});
    session.assignment.assignmentTable[2] = "Recon";
    ChooseSkillTable(session);
    Options ticked;
    ticked.Set(Option::SortSkillsByValue);
    player.ExpectEndOfTerm(EndOfTermChoice::ReEnlist, ticked);
    recorder.EndOfTerm({4, {}});
    player.ExpectTransfer("Scout", "Courier");
    TransferCareer(session);
    character().TermsInCareer = 1;
    player.ExpectEndCareer().ExpectMuster(MusterButton::Cash).ExpectMuster(MusterButton::Done);
    dice.Expect({Rolled(1, 6, 3)});
    TransferCareer(session);
    tape.end = journal::End{journal::EndKind::Error, "type", "odd \"level\"", {}, {}, {}};
    const std::vector<std::string> expected = {
        kHeader,
        R"({"roll":[2,6],"result":7})",
        R"({"draw":3,"result":1})",
        R"({"choose":"Select a Skill","options":["Stealth","Survival"],"picked":1})",
        R"({"select":"Take","maximum":1,"minimum":1,"items":["Admin=2","Medic=1"],"marked":[2]})",
        R"({"select":"Take","maximum":2,"minimum":1,"items":["Admin=2","Medic=1"],"marked":[]})",
        R"({"ask":"Accept?","answer":"yes"})",
        R"({"ask":"Really?","answer":"no"})",
        R"({"tell":"Released from prison"})",
        R"({"table":[1,2,5],"picked":5})",
        R"({"roll":[1,6],"result":2})",
        R"({"end of term":4,"answer":1,"options":["Sort Skills by Value"]})",
        R"({"transfer":true,"career":"Scout","assignment":"Courier"})",
        R"({"transfer":false})",
        R"({"muster":1,"press":"Cash","gambler":false})",
        R"({"roll":[1,6],"result":3})",
        R"({"muster":0,"press":"Done","gambler":false})",
        R"({"end":"error","kind":"type","message":"odd \"level\""})"};
    EXPECT_EQ(LinesOf(journal::JournalText(tape)), expected);
    EXPECT_EQ(journal::JournalText(journal::ReadJournal("", journal::JournalText(tape)).tape),
              journal::JournalText(tape));
}

TEST(Replay, HeaderMustBeKnown) {
    const auto start = journal::ReadJournal("", kHeader).tape.start;
    EXPECT_EQ(start.career, "Army");
    EXPECT_EQ(start.method, RollingMethod::True2D);
    const auto rejects = [](std::string header, const std::string& part, const std::string& other) {
        header.replace(header.find(part), part.size(), other);
        EXPECT_THROW(journal::ReadJournal("life.jsonl", header), journal::JournalError) << header;
    };
    rejects(kHeader, "\"journal\":1", "\"journal\":3");
    rejects(kHeader, "\"journal\":1", "\"journal\":2");
    rejects(kHeader, "True 2D ", "True 3D ");
    rejects(kHeader, "[]", "[\"Fly\"]");
    rejects(kHeader, "\"race\"", "\"rice\"");
    for (const std::string dice :
         {"1", "{}", R"({"seed":1.5,"number":1})", R"({"seed":1,"number":-1})", R"({"seed":"","number":1})"})
        rejects(kHeader, "\"journal\":1", R"("journal":2,"program":"","dice":)" + dice);
    EXPECT_THROW(journal::ReadJournal("life.jsonl", ""), FileError);
    EXPECT_THROW(journal::ReadJournal("life.jsonl", "not JSON"), FileError);
}

TEST(Replay, OtherRequestDivergesWithItsLine) {
    const Reading replayer({R"({"roll":[1,6],"result":3})", R"({"ask":"Accept?","answer":"yes"})"});
    EXPECT_EQ(replayer->Roll(1, 6), 3);
    try {
        replayer->Ask({"Refuse?"});
        FAIL() << "another question is a divergence";
    } catch (const Divergence& divergence) {
        EXPECT_STREQ(
            divergence.what(),
            R"(life.jsonl:3: the journal holds {"ask":"Accept?","answer":"yes"}, the engine asked {"ask":"Refuse?"})");
    }
    EXPECT_THROW(Reading({R"({"roll":[1,6],"result":3})"})->Roll(2, 6), Divergence);
    EXPECT_THROW(Reading({R"({"roll":[1,6],"result":3})"})->Draw(6), Divergence);
    EXPECT_THROW(Reading({R"({"end of term":3,"answer":1,"options":[]})"})->EndOfTerm({4, {}}), Divergence);
    EXPECT_THROW(Reading({R"({"muster":3,"press":"Done","gambler":false})"})->Muster({}), Divergence);
    EXPECT_THROW(Replay({R"({"end":"scrapped"})"}).ExpectEnd(journal::EndKind::MusteredOut), Divergence);
    EXPECT_THROW(Replay({R"({"roll":[1,6],"result":3})"}).ExpectEnd(journal::EndKind::MusteredOut), Divergence);
}

TEST(Replay, AnswersOutOfRangeAreErrors) {
    const auto column = [](bool enabled) {
        TableQuestion question{"", {}};
        for (auto& each : question.columns)
            each.enabled = enabled;
        question.columns[1].enabled = true;
        return question;
    };
    EXPECT_THROW(Reading({R"({"roll":[2,6],"result":1})"})->Roll(2, 6), FileError);
    EXPECT_THROW(Reading({R"({"roll":[2,6],"result":13})"})->Roll(2, 6), FileError);
    EXPECT_THROW(Reading({R"({"roll":[2,6],"result":"7"})"})->Roll(2, 6), FileError);
    EXPECT_THROW(Reading({R"({"roll":[2,6]})"})->Roll(2, 6), FileError);
    EXPECT_THROW(Reading({R"({"draw":3,"result":3})"})->Draw(3), FileError);
    const std::vector<std::string_view> sides = {"A", "B"};
    for (const std::string picked : {"0", "3", "-1"})
        EXPECT_THROW(
            Reading({R"({"choose":"Take","options":["A","B"],"picked":)" + picked + "}"})->Choose({"Take", sides}),
            FileError);
    EXPECT_THROW(Reading({R"({"table":[1],"picked":2})"})->PickTable(column(false)), FileError);
    EXPECT_THROW(Reading({R"({"end of term":4,"answer":5,"options":[]})"})->EndOfTerm({4, {}}), FileError);
    EXPECT_THROW(Reading({R"({"ask":"Accept?","answer":"perhaps"})"})->Ask({"Accept?"}), FileError);
    MusterQuestion muster;
    muster.cashEnabled = false;
    EXPECT_THROW(Reading({R"({"muster":0,"press":"Cash","gambler":false})"})->Muster(muster), FileError);
    EXPECT_THROW(Reading({R"({"muster":0,"press":"Material","gambler":true})"})->Muster(muster), FileError);
    const std::vector<std::string_view> items = {"A", "B"};
    const auto select = [&](const std::string& marks) {
        return Reading({R"({"select":"Take","maximum":1,"minimum":1,"items":["A","B"],"marked":)" + marks + "}"})
            ->Select({"Take", 1, 1, items});
    };
    EXPECT_EQ(select("[2]"), std::vector<int>{2});
    EXPECT_EQ(select("[]"), std::vector<int>{});
    EXPECT_THROW(select("[3]"), FileError);
    EXPECT_THROW(select("[1,2]"), FileError);
    EXPECT_THROW(select("[2,1]"), FileError);
    const Names careers = {"Army"};
    const auto transfer = [&](const std::string& career, const std::string& assignment) {
        return Reading({R"({"transfer":true,"career":")" + career + R"(","assignment":")" + assignment + "\"}"})
            ->Transfer({careers, [](std::string_view) { return std::make_shared<const Names>(Names{"Infantry"}); }});
    };
    EXPECT_EQ(transfer("Army", "Infantry")->assignment, "Infantry");
    EXPECT_THROW(transfer("Navy", "Infantry"), FileError);
    EXPECT_THROW(transfer("Army", "Flight"), FileError);
}

TEST(Replay, EndsAsTheJournalDoes) {
    Replay replay({R"({"end":"scrapped"})"});
    EXPECT_THROW(replay.deck.EndOfTerm({4, {}}), CharacterScrapped);
    replay.ExpectEnd(journal::EndKind::Scrapped);
    EXPECT_THROW(replay.deck.Roll(1, 6), Divergence);
    EXPECT_TRUE(Replay({R"({"end":"mustered out"})", "{}"}).read.goesOn);
    EXPECT_THROW(Replay({}).ExpectEnd(journal::EndKind::MusteredOut), FileError) << "the journal ends early";
    Replay failed({R"({"roll":[2,6],"result":7})", R"({"end":"error","kind":"type","message":"free text"})"});
    failed.deck.Roll(2, 6);
    EXPECT_NO_THROW(failed.ExpectEnd(journal::EndKind::Error, "type"));
    EXPECT_THROW(failed.ExpectEnd(journal::EndKind::Error, "overflow"), Divergence);
}

// A plan drawn at random: by whatever player and method, with whatever options.
play::LifePlan AnyPlan(RandomStream& picks) {
    play::LifePlan plan;
    plan.seed = Seed(11);
    plan.player = static_cast<play::PlayerKind>(picks.Below(3));
    plan.method = picks.Below(2) == 0 ? RollingMethod::True2D : RollingMethod::Roll3Drop1;
    plan.terms = 1 + picks.Below(11);
    for (std::size_t i = 1; i < kOptionCaptions.size(); ++i)
        plan.options.Set(static_cast<Option>(i), picks.Below(2) == 0);
    return plan;
}

// Records a life and lives its journal again, twice in one session. Returns whether it was mustered out.
bool RecordAndReplay(Session& session, const play::LifePlan& plan, std::uint64_t number) {
    journal::Tape tape;
    const auto outcome = play::Live(session, plan, number, &tape);
    const auto document = CharacterDocument(session);
    for (int i = 0; i < 2; ++i) {
        auto read = journal::ReadJournal("life.jsonl", journal::JournalText(tape));
        TapeDeck deck(session, read.tape, nullptr, nullptr, "life.jsonl");
        EXPECT_EQ(play::LiveAgain(session, read.tape, deck).kind, outcome.kind) << number;
        EXPECT_EQ(CharacterDocument(session), document) << number;
    }
    return outcome.end == LifeEnd::MusteredOut;
}

void RecordAndReplayAThousand(const HeldPath& location) {
    Display display;
    Session session(DataFolder(location, DataFolder::Reading::Once), {nullptr, nullptr, &display});
    RandomStream picks(2026);
    int finished = 0;
    for (std::uint64_t number = 1; number <= 1000 && !testing::Test::HasFailure(); ++number)
        finished += RecordAndReplay(session, AnyPlan(picks), number) ? 1 : 0;
    EXPECT_GT(finished, 400);
}

TEST(Replay, AThousandRandomLivesGiveEqualDocuments) {
    RecordAndReplayAThousand(HeldPath(KORVANE_RULES));
}

TEST(Replay, SoDoAThousandOnDataThatHoldsEveryCode) {
    const test::TempFolder folder;
    test::WriteEveryCodeData(KORVANE_RULES, folder.path().string());
    RecordAndReplayAThousand(folder.held());
}

TEST(Replay, HostileLinesAreErrorsOfBoundedLength) {
    const auto told = [](const std::string& line) -> std::string {
        try {
            Reading({line})->Roll(1, 6);
        } catch (const FileError& error) {
            return error.what();
        }
        return "accepted";
    };
    EXPECT_EQ(told("{\"roll\":" + std::string(100000, '[')).substr(0, 62),
              "life.jsonl:2: expected a JSON object whose brackets stand at m");
    for (const auto& line :
         {"{\"roll\":" + std::string(100000, '['), std::string(3'000'000, 'x'), "\"\\" + std::string(99999, '{'),
          "{\"roll\":[1,6],\"result\":\"" + std::string(500000, 'y') + "\"}", std::string("{\xFF\x1B")})
        EXPECT_LT(told(line).size(), 300U);
    EXPECT_EQ(told(R"({"roll":[1,6],"result":3,"free":"[[[[[[[[[[[[[[[[[[[[[[[[\"[[[["})"), "accepted")
        << "texts nest nothing";
}

}  // namespace
}  // namespace korvane
