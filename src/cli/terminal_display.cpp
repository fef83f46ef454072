#include "cli/terminal_display.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "base/text.h"
#include "character/checks.h"
#include "output/summary_texts.h"

namespace korvane::cli {

void WrappedOut::Write(std::string_view text) {
    while (!text.empty()) {
        const auto [line, rest] = SplitFirst(text, "\n");
        WriteLine(line);
        if (line.size() < text.size())
            out_ << '\n';
        text = rest;
    }
}

void WrappedOut::WriteLine(std::string_view line) {
    const auto most = static_cast<std::size_t>(width_);
    const auto indent = std::min(line.find_first_not_of(" |*>0123456789)."), line.size());
    const std::string margin(std::min(indent, most / 2), ' ');
    std::size_t room = most;
    while (width_ > 0 && CharacterCount(line) > room) {
        const auto start = FirstCharacters(line, room + 1);
        auto place = start.rfind(' ');
        if (place == std::string_view::npos || Trim(start.substr(0, place)).empty())
            place = FirstCharacters(line, room).size();
        out_ << line.substr(0, place) << '\n' << margin;
        line.remove_prefix(place);
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        room = most - margin.size();
    }
    out_ << line;
}

void TerminalDisplay::Hush(bool all) {
    hushed_ = true;
    all_ = all;
}

void TerminalDisplay::GoOn() {
    if (!std::exchange(hushed_, false))
        return;
    shown_ = all_ ? 0 : session_.character.History.size();
    HistoryChanged();
}

void TerminalDisplay::HistoryChanged() {
    if (hushed_)
        return;
    const auto lines = session_.character.History.lines();
    if (lines.size() < shown_)
        shown_ = 0;
    for (; shown_ < lines.size(); ++shown_)
        out_.Write(Concat("  | ", lines[shown_], "\n"));
}

void TerminalDisplay::ShowDice(const journal::Line& line) {
    if (const auto* const roll = std::get_if<journal::RollLine>(&line))
        out_.Write(Concat("  . ", roll->request.count, "D", roll->request.sides, ": ", roll->answer, "\n"));
}

void TerminalDisplay::ShowCheck(const RolledCheck& rolled) {
    const auto against = rolled.under
                             ? Concat("the roll may be ", rolled.target, " at most")
                             : Concat(SignedNumber(rolled.own + rolled.once), " to the roll against ", rolled.target);
    out_.Write(Concat("  . check ", rolled.check, ": ", against, rolled.effect >= 0 ? ", made by " : ", failed by ",
                      std::abs(rolled.effect), "\n"));
}

}  // namespace korvane::cli
