// Keeps each life of the desktop program in a file of its own.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "play/kept_journal.h"

namespace korvane {

// The first life goes into the file that was named; those that follow into others beside it, with numbers: nothing that
// was kept is overwritten.
class JournalKeeper : public play::TapeKeeper {
  public:
    // `isUsed`: a life stands in the file already. Throws IoError for a file that holds something else or can't be
    // written.
    JournalKeeper(std::filesystem::path path, play::KeptJournal::Report report, bool isUsed = false);

    void Begun(const journal::Tape& tape) override;
    void Recorded(const journal::Line& line) override;
    void CutTo(std::size_t lines) override;
    void Ended(const journal::End& end) override;

  private:
    // The next file beside the first that isn't there yet.
    std::filesystem::path NextPath();

    std::filesystem::path path_;
    play::KeptJournal::Report report_;
    std::optional<play::KeptJournal> journal_;
    bool used_ = false;  // a life stands in the file
    int number_ = 1;
};

}  // namespace korvane
