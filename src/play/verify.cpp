#include "play/verify.h"

#include <array>
#include <filesystem>

#include "base/encoding.h"
#include "base/text.h"
#include "output/journal/lines.h"

namespace korvane::play {

namespace {

std::string ListOf(const std::vector<std::string>& names) {
    std::string list;
    for (const auto& name : names)
        AppendAll(list, list.empty() ? "" : ", ", name);
    return list;
}

Proof RulesDiffer(const std::vector<std::string>& files, std::string_view more = {}) {
    return {Verdict::RulesDiffer, Concat(ListOf(files), more.empty() ? "" : "; ", more), {}, files};
}

// What was found on the way, before anything that follows from it.
std::optional<Proof> FoundByTheDeck(const journal::TapeDeck& deck) {
    if (!deck.changedFiles().empty())
        return RulesDiffer(deck.changedFiles());
    if (const auto die = deck.foreignDie())
        return Proof{Verdict::DieDiffers, {}, journal::JournalLine(*die), {}};
    return std::nullopt;
}

bool HasOddLine(const journal::Tape& tape) {
    return !tape.lines.empty() && std::holds_alternative<journal::OddLine>(tape.lines.back());
}

// What the last line says of the result, against the life that was just lived.
std::optional<Proof> JudgeEnd(const Session& session, const journal::Journal& journal) {
    const auto& tape = journal.tape;
    const int line = journal::JournalLine(tape.lines.size());
    const auto& end = *tape.end;
    if (end.document && *end.document != DocumentDigest(session, tape))
        return Proof{Verdict::ResultDiffers, "the finished document is another", line, {}};
    if (end.journal && end.journal != journal.digest)
        return Proof{Verdict::AnswerDiffers, "the lines aren't those that were written", line, {}};
    return std::nullopt;
}

Proof Judge(Session& session, const journal::Journal& journal, journal::TapeDeck& deck) {
    const auto& tape = journal.tape;
    try {
        LiveAgain(session, tape, deck);
    } catch (const MissingSelection& selection) {
        return RulesDiffer({std::filesystem::path(selection.missing().file).filename().string()}, selection.what());
    } catch (const journal::Divergence& divergence) {
        if (auto found = FoundByTheDeck(deck))
            return *found;
        return {Verdict::AnswerDiffers, divergence.what(), divergence.line(), {}};
    } catch (const journal::JournalError& error) {
        if (auto found = FoundByTheDeck(deck))
            return *found;
        if (tape.end || (HasOddLine(tape) && journal.IsDamaged()))
            throw;
        return {Verdict::Unfinished, {}, error.line(), {}};
    }
    if (auto found = FoundByTheDeck(deck))
        return *found;
    if (auto found = JudgeEnd(session, journal))
        return *found;
    if (journal.goesOn)
        return {Verdict::AnswerDiffers, "lines follow the last one", journal::JournalLine(tape.lines.size() + 1), {}};
    return {};
}

}  // namespace

std::string_view NameOf(Verdict verdict) {
    constexpr std::array<std::string_view, 7> kNames = {"proved",
                                                        "consistent",
                                                        "the rules differ",
                                                        "a die is not the seed's",
                                                        "an answer or request differs",
                                                        "the result differs",
                                                        "unfinished"};
    return kNames.at(static_cast<std::size_t>(verdict));
}

Proof Verify(Session& session, const journal::Journal& journal, const std::optional<Seed>& demanded) {
    const auto& start = journal.tape.start;
    const auto& seed = start.dice ? start.dice->seed : std::nullopt;
    if (demanded && seed && *seed != *demanded)
        return {Verdict::DieDiffers, Concat("the journal names the seed ", Quoted(seed->given())), 1, {}};
    auto tape = journal.tape;
    journal::TapeDeck deck(session, tape, nullptr, nullptr, journal.name);
    std::optional<SeededDice> dice;
    if (seed)
        deck.CompareWith(&dice.emplace(seed->value(), start.dice->number));
    auto proof = Judge(session, journal, deck);
    if (proof.verdict != Verdict::Proved || seed)
        return proof;
    proof.verdict = Verdict::Consistent;
    proof.why = start.version == 1 ? "a journal of version 1 names neither seed nor digests, so nothing can be proved"
                                   : "the dice are the clock's, which nobody can prove";
    return proof;
}

}  // namespace korvane::play
