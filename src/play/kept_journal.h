// A journal that is kept in a file while its life is lived.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/files.h"
#include "play/recorded_life.h"

namespace korvane::play {

// Each answer is on the disk before the next question comes. What the disk refuses is told once; the life goes on, and
// its journal ends there.
class KeptJournal : public TapeKeeper {
  public:
    using Report = std::function<void(const std::string& error)>;

    // A journal to come, in a file that holds nothing yet. Throws IoError.
    KeptJournal(std::filesystem::path path, Report report);
    // One that goes on where its tape ends.
    KeptJournal(std::filesystem::path path, const journal::Journal& journal, Report report);

    const std::filesystem::path& path() const { return path_; }
    // Whether all of it was kept.
    bool whole() const { return whole_; }

    void Begun(const journal::Tape& tape) override;
    void Recorded(const journal::Line& line) override;
    void CutTo(std::size_t lines) override;
    void Ended(const journal::End& end) override;

  private:
    void Write(const std::vector<std::string>& lines);
    void CutNow();
    template <typename Action>
    void Try(const Action& action);

    std::filesystem::path path_;
    Report report_;
    std::optional<LineFile> file_;
    std::optional<std::size_t> cut_;  // to be done before anything is written: what is dropped is kept until then
    bool isCut_ = false;              // the last line that stands has no line end
    std::vector<std::size_t> ends_;   // in bytes: of the start, and of each line
    bool whole_ = true;
};

// Reads a journal; "-" is standard input. Throws IoError, and JournalError for a malformed first line.
journal::Journal ReadJournalFile(const std::filesystem::path& path);

}  // namespace korvane::play
