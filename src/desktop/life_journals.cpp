#include "desktop/life_journals.h"

#include <QObject>
#include <utility>

#include "base/error.h"
#include "base/files.h"
#include "output/journal/lines.h"
#include "play/kept_journal.h"
#include "ui/message_boxes.h"
#include "ui/qt_text.h"

namespace korvane {

using ui::ToQt;

void LifeJournals::KeepIn(const std::filesystem::path& path) {
    try {
        StartKeeping(path);
    } catch (const FileError& error) {
        ShowFault(error, QObject::tr("No journal can be kept there."));
    }
}

void LifeJournals::StartKeeping(const std::filesystem::path& path) {
    std::error_code error;
    if (std::filesystem::is_regular_file(path, error) && std::filesystem::file_size(path, error) > 0) {
        const auto journal = play::ReadJournalFile(path);
        if (!journal.tape.end) {
            Keep(std::make_unique<JournalKeeper>(path, Report(), true));
            GoOn(journal, path);
            return;
        }
    }
    Keep(std::make_unique<JournalKeeper>(path, Report()));
    say(QObject::tr("Each life is kept as it is lived, the next one in %1.").arg(ToQt(path.string())));
}

void LifeJournals::Keep(std::unique_ptr<JournalKeeper> keeper) {
    controller_.life().keeper = keeper.get();
    keeper_ = std::move(keeper);
}

void LifeJournals::AskToKeep() {
    const auto path =
        ui::AskForNewFile(guard_, window_, window_.windowTitle(), QObject::tr("life.jsonl"), false).toStdString();
    if (!path.empty())
        KeepIn(path);
}

void LifeJournals::AskToGoOn() {
    const auto path =
        ui::AskForFile(guard_, window_, window_.windowTitle(), QObject::tr("Journals (*.jsonl);;All files (*)"))
            .toStdString();
    if (path.empty())
        return;
    try {
        GoOn(play::ReadJournalFile(path), path);
    } catch (const FileError& error) {
        ShowFault(error, QObject::tr("The journal can't be gone on with."));
    }
}

void LifeJournals::GoOn(const journal::Journal& journal, const std::filesystem::path& path) {
    // This life stands in its own file; those that follow are kept as they were before.
    std::optional<play::KeptJournal> own;
    if (!journal.tape.end)
        own.emplace(path, journal, Report());
    controller_.life().keeper = own ? &*own : nullptr;
    live([&](const play::RecordedLife::Finished& finished) { return controller_.GoOn(journal, finished); });
    controller_.life().keeper = keeper_.get();
}

void LifeJournals::Save() {
    const auto& ended = controller_.life().ended();
    if (!ended) {
        ui::ShowMessage(guard_, &window_, window_.windowTitle(), QObject::tr("No life has been lived yet."),
                        Icon::Information);
        return;
    }
    const auto path = ui::AskForNewFile(guard_, window_, window_.windowTitle(), QObject::tr("life.jsonl"));
    if (path.isEmpty())
        return;
    try {
        ReplaceFile(path.toStdString(), journal::JournalText(*ended));
        say(QObject::tr("The journal was written to %1.").arg(path));
    } catch (const FileError& error) {
        ShowFault(error, QObject::tr("The journal was not written."));
    }
}

play::KeptJournal::Report LifeJournals::Report() {
    return [this](const std::string& told) {
        ui::ShowError(guard_, &window_, window_.windowTitle(), ToQt(told),
                      QObject::tr("The life goes on; its journal ends here."));
    };
}

void LifeJournals::ShowFault(const FileError& error, const QString& consequence) {
    ui::ShowError(guard_, &window_, window_.windowTitle(), ToQt(error.what()), consequence);
}

}  // namespace korvane
