#include "play/kept_journal.h"

#include <utility>

#include "output/journal/lines.h"

namespace korvane::play {

namespace {

std::string TextOf(const journal::Line& line) {
    std::string text;
    journal::AppendLine(text, line);
    return text;
}

}  // namespace

KeptJournal::KeptJournal(std::filesystem::path path, Report report)
    : path_(std::move(path)), report_(std::move(report)) {
    file_.emplace(path_, Sync::Now);
}

KeptJournal::KeptJournal(std::filesystem::path path, const journal::Journal& journal, Report report)
    : path_(std::move(path)),
      report_(std::move(report)),
      cut_(journal.bytes),
      isCut_(journal.isCut && !journal.goesOn && journal.tape.lines.size() + 1 == journal.ends.size()),
      ends_(journal.ends) {
    file_.emplace(path_, Sync::Now, true);
}

void KeptJournal::CutNow() {
    if (!cut_)
        return;
    file_->CutTo(*std::exchange(cut_, std::nullopt));
    if (std::exchange(isCut_, false)) {
        file_->Write("");
        ++ends_.back();
    }
}

template <typename Action>
void KeptJournal::Try(const Action& action) {
    if (!file_)
        return;
    try {
        action();
    } catch (const IoError& error) {
        whole_ = false;
        file_.reset();
        report_(error.what());
    }
}

void KeptJournal::Write(const std::vector<std::string>& lines) {
    Try([&] {
        CutNow();
        auto end = file_->size();
        for (const auto& line : lines)
            ends_.push_back(end += line.size() + 1);
        file_->Write(lines);
    });
}

void KeptJournal::Begun(const journal::Tape& tape) {
    cut_.reset();
    Try([&] { file_->CutTo(0); });
    ends_.clear();
    std::vector<std::string> lines(1);
    journal::AppendStart(lines.front(), tape.start);
    for (const auto& line : tape.lines)
        lines.push_back(TextOf(line));
    Write(lines);
}

void KeptJournal::Recorded(const journal::Line& line) {
    Write({TextOf(line)});
}

void KeptJournal::CutTo(std::size_t lines) {
    Try([&] {
        CutNow();
        ends_.resize(lines + 1);
        file_->CutTo(ends_.back());
    });
}

void KeptJournal::Ended(const journal::End& end) {
    std::string text;
    journal::AppendEnd(text, end);
    Write({text});
}

journal::Journal ReadJournalFile(const std::filesystem::path& path) {
    return journal::ReadJournal(path == "-" ? "standard input" : path.string(),
                                ReadStream(path, "a journal", kMostJournal));
}

}  // namespace korvane::play
