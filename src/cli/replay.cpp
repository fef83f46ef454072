#include <exception>

#include "base/encoding.h"
#include "base/files.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "cli/rendering.h"
#include "play/life.h"

namespace korvane::cli {

namespace {

void WritePage(Session& session, const ReplayCommand& command) {
    PageWriter pages(session, command.page, command.outFolder, false);
    pages.Write(*NameFor(session, command.name, command.format, "Character"));
    pages.Finish();
}

void Show(Session& session, const ReplayCommand& command, std::ostream& out) {
    if (command.format == Format::Html)
        WritePage(session, command);
    else
        out << Rendered(session, command.format, {NameFor(session, command.name, command.format, "Character"), {}, {}});
}

// A journal from a file or, for "-", from standard input.
journal::Replayer ReadJournal(const std::string& path) {
    if (path == "-")
        return {"standard input", DecodeText(ReadStandardInput("a journal", kMostJournal))};
    return {path, DecodeText(ReadBytes(NativePath(HeldPath(path)), "a journal", kMostJournal))};
}

}  // namespace

int Replay(const ReplayCommand& command, Streams& streams) {
    auto replayer = ReadJournal(command.journal);
    Display display;
    Session session(DataFolder(ChooseDataLocation(command.data)), {&replayer, &replayer, &display});
    try {
        const auto outcome = play::LiveAgain(session, replayer);
        if (outcome.cause)
            std::rethrow_exception(outcome.cause);
        if (outcome.finished())
            Show(session, command, streams.out);
        return kSuccess;
    } catch (const journal::Divergence& divergence) {
        streams.err << "korvane-cli: " << divergence.what() << '\n';
        return kDivergence;
    }
}

}  // namespace korvane::cli
