#include <utility>

#include "base/encoding.h"
#include "base/error.h"
#include "base/files.h"
#include "character/characteristics.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "cli/players.h"
#include "engine/selection.h"
#include "output/character_document.h"
#include "output/character_text.h"
#include "output/journal/replayer.h"

namespace korvane::cli {

namespace {

// Lives the journal's life again. Returns how it ended; an error that ended it is thrown once more when the journal
// holds it too.
LifeEnd LiveAgain(Session& session, journal::Replayer& replayer) {
    try {
        StartNewCharacter(session);
        const auto end = RunLife(session);
        replayer.ExpectEnd(end);
        return end;
    } catch (const RuleError& error) {
        replayer.ExpectErrorEnd(NameOf(error.kind()));
        throw;
    } catch (const journal::JournalError&) {
        throw;
    } catch (const FileError&) {
        replayer.ExpectErrorEnd("file");
        throw;
    }
}

// The selection asks nothing of the journal; what it tells was told before the journal began.
void SelectAsRecorded(Session& session, const journal::Start& start) {
    RandomPlayer nobody{RandomStream()};
    auto* const player = std::exchange(session.seams.player, &nobody);
    session.method = start.method;
    session.options = start.options;
    SelectStart(session, start.race, start.career, start.assignment);
    session.seams.player = player;
}

void Show(Session& session, const ReplayCommand& command, std::ostream& out) {
    if (command.format == Format::Html)
        PageWriter(session, command.page, command.outFolder).Write("Character");
    else
        out << (command.format == Format::Json ? CharacterDocument(session) + "\n" : CharacterText(session));
}

// A journal from a file or, for "-", from standard input.
journal::Replayer ReadJournal(const std::string& path) {
    if (path == "-")
        return {"standard input", DecodeText(ReadStandardInput("a journal", kMostJournal))};
    return {path, DecodeText(ReadBytes(path, "a journal", kMostJournal))};
}

}  // namespace

int Replay(const ReplayCommand& command, Streams& streams) {
    auto replayer = ReadJournal(command.journal);
    Display display;
    Session session(DataFolder(ChooseDataLocation(command.data)), {&replayer, &replayer, &display});
    SelectAsRecorded(session, replayer.start());
    try {
        if (LiveAgain(session, replayer) == LifeEnd::MusteredOut)
            Show(session, command, streams.out);
        return kSuccess;
    } catch (const journal::Divergence& divergence) {
        streams.err << "korvane-cli: " << divergence.what() << '\n';
        return kDivergence;
    }
}

}  // namespace korvane::cli
