#include "base/error.h"
#include "base/places.h"
#include "character/characteristics.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "engine/selection.h"
#include "output/character_document.h"
#include "output/character_text.h"
#include "output/journal/replayer.h"

namespace korvane::cli {

namespace {

// Lives the journal's life again. Returns how it ended; throws what it ended in.
LifeEnd LiveAgain(Session& session, journal::Replayer& replayer) {
    try {
        StartNewCharacter(session);
        const auto end = RunLife(session);
        replayer.ExpectEnd(end);
        return end;
    } catch (const RuleError& error) {
        replayer.ExpectErrorEnd(NameOf(error.kind()));
        throw;
    }
}

}  // namespace

int Replay(const ReplayCommand& command, Streams& streams) {
    journal::Replayer replayer(ReadTextFile(HeldPath(command.journal), "a journal"));
    Display display;
    Session session(DataFolder(ChooseDataLocation(command.data)), {&replayer, &replayer, &display});
    const auto& start = replayer.start();
    session.method = start.method;
    session.options = start.options;
    SelectStart(session, start.race, start.career, start.assignment);
    try {
        if (LiveAgain(session, replayer) == LifeEnd::MusteredOut)
            streams.out << (command.format == Format::Json ? CharacterDocument(session) + "\n"
                                                           : CharacterText(session));
        return kSuccess;
    } catch (const journal::Divergence& divergence) {
        streams.err << "korvane-cli: " << divergence.what() << '\n';
        return kDivergence;
    } catch (const RuleError& error) {
        streams.err << "korvane-cli: " << NameOf(error.kind()) << " error: " << error.what() << '\n';
        return kFailure;
    }
}

}  // namespace korvane::cli
