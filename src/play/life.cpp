#include "play/life.h"

#include <utility>

#include "base/digest.h"
#include "base/encoding.h"
#include "base/text.h"
#include "character/seams_guard.h"
#include "output/journal/lines.h"
#include "play/players.h"

namespace korvane::play {

void Insert(journal::TapeDeck& deck, Session& session) {
    deck.observer = session.seams.observer;
    session.seams.dice = &deck;
    session.seams.player = &deck;
    session.seams.observer = &deck;
}

LifeOutcome LiveOut(Session& session, const Beginning& begin) {
    try {
        begin(session);
        return {RunLife(session), {}, {}, {}};
    } catch (const RuleError& error) {
        return {std::nullopt, std::string(NameOf(error.kind())), error.what(), std::current_exception()};
    } catch (const journal::JournalError&) {
        throw;
    } catch (const FileError& error) {
        return {std::nullopt, "file", error.what(), std::current_exception()};
    }
}

journal::Start StartOf(const Session& session, const Origin& dice) {
    const auto& selection = session.selection;
    journal::Start start;
    start.program = "korvane " KORVANE_VERSION;
    start.dice = dice;
    start.race = selection.race;
    start.career = selection.career;
    start.assignment = selection.assignment;
    start.method = session.method;
    start.options = session.options;
    return start;
}

DocumentLabels LabelsOf(const journal::Tape& tape) {
    DocumentLabels labels;
    labels.dice = tape.start.dice;
    if (tape.start.version > 1)
        labels.backs = tape.backs;
    if (labels.dice && labels.dice->seed)
        labels.number = labels.dice->number;
    return labels;
}

std::string DocumentDigest(const Session& session, const journal::Tape& tape) {
    return Sha256Text(CharacterDocument(session, LabelsOf(tape)));
}

namespace {

// Without the digests.
journal::End PlainEndOf(const LifeOutcome& outcome) {
    journal::End end;
    if (!outcome.end) {
        end.kind = journal::EndKind::Error;
        end.errorKind = outcome.kind;
        end.message = outcome.error;
    } else if (!outcome.finished()) {
        end.kind = journal::EndKind::Scrapped;
    }
    return end;
}

}  // namespace

journal::End EndOf(const Session& session, const journal::Tape& tape, const LifeOutcome& outcome) {
    auto end = PlainEndOf(outcome);
    if (tape.start.version == 1)
        return end;
    if (outcome.finished())
        end.document = DocumentDigest(session, tape);
    end.backs = tape.backs;
    end.journal = JournalDigest(tape, end);
    return end;
}

LifeOutcome LiveRecorded(Session& session, journal::Tape& tape, const Origin& dice) {
    const SeamsGuard guard(session.seams);
    tape.start = StartOf(session, dice);
    journal::TapeDeck deck(session, tape, session.seams.dice, session.seams.player);
    Insert(deck, session);
    deck.NoteSelection();
    auto outcome = LiveOut(session);
    tape.end = EndOf(session, tape, outcome);
    return outcome;
}

LifeOutcome LiveAgain(Session& session, const journal::Tape& tape, journal::TapeDeck& deck) {
    const SeamsGuard guard(session.seams);
    SelectStartOf(session, tape.start);
    Insert(deck, session);
    deck.NoteSelection();
    auto outcome = LiveOut(session);
    deck.ExpectEnd(PlainEndOf(outcome));
    return outcome;
}

MissingSelection::MissingSelection(Missing missing)
    : std::runtime_error(Concat("unknown ", missing.kind, " ", Quoted(missing.name))), missing_(std::move(missing)) {}

void Select(Session& session, std::string_view race, std::string_view career, std::string_view assignment) {
    session.hasStepsBetween = true;
    if (auto missing = SelectStart(session, race, career, assignment))
        throw MissingSelection(std::move(*missing));
}

void SelectStartOf(Session& session, const journal::Start& start) {
    RandomPlayer nobody{RandomStream()};
    const SeamsGuard guard(session.seams);
    session.seams.player = &nobody;
    session.seams.observer = nullptr;
    session.method = start.method;
    session.options = start.options;
    session.choice = {};
    session.musterResults = {};
    Select(session, start.race, start.career, start.assignment);
    session.hasStepsBetween = start.version > 1;
}

}  // namespace korvane::play
