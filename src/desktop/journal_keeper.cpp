#include "desktop/journal_keeper.h"

#include <utility>

#include "base/error.h"
#include "base/text.h"

namespace korvane {

JournalKeeper::JournalKeeper(std::filesystem::path path, play::KeptJournal::Report report, bool isUsed)
    : path_(std::move(path)), report_(std::move(report)), used_(isUsed) {
    if (!isUsed)
        journal_.emplace(path_, report_);
}

std::filesystem::path JournalKeeper::NextPath() {
    std::filesystem::path next;
    std::error_code error;
    do
        next = path_.parent_path() / Concat(path_.stem().string(), "-", ++number_, path_.extension().string());
    while (std::filesystem::exists(next, error));
    return next;
}

void JournalKeeper::Begun(const journal::Tape& tape) {
    try {
        if (std::exchange(used_, true))
            journal_.emplace(NextPath(), report_);
    } catch (const IoError& error) {
        journal_.reset();
        report_(error.what());
    }
    if (journal_)
        journal_->Begun(tape);
}

void JournalKeeper::Recorded(const journal::Line& line) {
    if (journal_)
        journal_->Recorded(line);
}

void JournalKeeper::CutTo(std::size_t lines) {
    if (journal_)
        journal_->CutTo(lines);
}

void JournalKeeper::Ended(const journal::End& end) {
    if (journal_)
        journal_->Ended(end);
}

}  // namespace korvane
