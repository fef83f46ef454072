#include "play/life.h"

#include <utility>

#include "base/encoding.h"
#include "base/text.h"
#include "character/seams_guard.h"
#include "play/players.h"

namespace korvane::play {

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

LifeOutcome LiveRecorded(Session& session, journal::Recorder& recorder) {
    recorder.Begin(session);
    return LiveRecorded(session, recorder, StartNewCharacter);
}

LifeOutcome LiveRecorded(Session& session, journal::Recorder& recorder, const Beginning& begin,
                         const std::function<void()>& handOver) {
    auto outcome = LiveOut(session, begin);
    if (outcome.finished() && handOver)
        handOver();
    if (outcome.end)
        recorder.End(*outcome.end);
    else
        recorder.EndInError(outcome.kind, outcome.error);
    return outcome;
}

LifeOutcome LiveAgain(Session& session, journal::Replayer& replayer) {
    // The selection asks nothing of the journal; what it tells was told before the journal began.
    RandomPlayer nobody{RandomStream()};
    const SeamsGuard guard(session.seams);
    session.seams.player = &nobody;
    const auto& start = replayer.start();
    session.method = start.method;
    session.options = start.options;
    Select(session, start.race, start.career, start.assignment);
    session.seams.dice = &replayer;
    session.seams.player = &replayer;
    auto outcome = LiveOut(session);
    if (outcome.end)
        replayer.ExpectEnd(*outcome.end);
    else
        replayer.ExpectErrorEnd(outcome.kind);
    return outcome;
}

MissingSelection::MissingSelection(Missing missing)
    : std::runtime_error(Concat("unknown ", missing.kind, " ", Quoted(missing.name))), missing_(std::move(missing)) {}

void Select(Session& session, std::string_view race, std::string_view career, std::string_view assignment) {
    if (auto missing = SelectStart(session, race, career, assignment))
        throw MissingSelection(std::move(*missing));
}

}  // namespace korvane::play
