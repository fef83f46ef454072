// The journals of the lives that the main window lives: kept in files, gone on with, and written afterwards.
#pragma once

#include <QWidget>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

#include "desktop/generation_controller.h"
#include "desktop/journal_keeper.h"
#include "ui/input_guard.h"

namespace korvane {

// Each operation tells the player what can't be read or written; what the rules throw passes through.
class LifeJournals {
  public:
    LifeJournals(QWidget& window, ui::InputGuard& guard, GenerationController& controller)
        : window_(window), guard_(guard), controller_(controller) {}

    // Lives a life in the window, by a function that is given what is to be done with a finished character.
    std::function<void(const std::function<LifeEnd(const play::RecordedLife::Finished&)>&)> live;
    // Says something in the window's status line.
    std::function<void(const QString&)> say;

    // From now on each life is kept in a file, the first in this one; an unfinished journal that is there is gone on
    // with.
    void KeepIn(const std::filesystem::path& path);
    // The same in a file that the player chooses.
    void AskToKeep();
    // Goes on with the life of a journal that the player chooses.
    void AskToGoOn();
    // Writes the journal of the last life into a file that the player chooses.
    void Save();

  private:
    void StartKeeping(const std::filesystem::path& path);
    void Keep(std::unique_ptr<JournalKeeper> keeper);
    // An unfinished life is kept on in its file.
    void GoOn(const journal::Journal& journal, const std::filesystem::path& path);
    play::KeptJournal::Report Report();
    void ShowFault(const FileError& error, const QString& consequence);

    QWidget& window_;
    ui::InputGuard& guard_;
    GenerationController& controller_;
    std::unique_ptr<JournalKeeper> keeper_;
};

}  // namespace korvane
