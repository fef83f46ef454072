#include "play/players.h"

#include <algorithm>

#include "data/known_names.h"
#include "engine/term_loop.h"

namespace korvane::play {

namespace {

// A career with any of its assignments; nothing for no career.
std::optional<TransferAnswer> TransferTo(RandomStream& stream, const std::string* career,
                                         const TransferQuestion& question) {
    if (career == nullptr)
        return std::nullopt;
    const auto assignments = question.assignmentsOf(*career);
    const auto* const assignment = AnyOf(stream, *assignments);
    return TransferAnswer{*career, assignment == nullptr ? std::string() : *assignment};
}

}  // namespace

const std::string* AnyOf(RandomStream& stream, const Names& names,
                         const std::function<bool(std::string_view)>& isLeftOut) {
    const auto eligible = [&](const std::string& name) { return !isLeftOut || !isLeftOut(name); };
    const auto count = static_cast<int>(std::ranges::count_if(names, eligible));
    if (count == 0)
        return nullptr;
    int index = stream.Below(count);
    return &*std::ranges::find_if(names, [&](const std::string& name) { return eligible(name) && index-- == 0; });
}

int RandomPlayer::Choose(const ChoiceQuestion& question) {
    return stream_.Below(static_cast<int>(question.options.size())) + 1;
}

std::vector<int> RandomPlayer::Select(const ListQuestion& question) {
    const auto items = static_cast<int>(question.items.size());
    const int least = std::min(question.minimum, items);
    const int most = std::min(question.maximum, items);
    std::vector<int> marked;
    const bool cancels = stream_.Below(8) == 0;
    const int wanted = cancels ? 0 : least + stream_.Below(std::max(most - least, 0) + 1);
    while (static_cast<int>(marked.size()) < wanted) {
        const int item = stream_.Below(items) + 1;
        if (std::ranges::find(marked, item) == marked.end())
            marked.push_back(item);
    }
    std::ranges::sort(marked);
    return marked;
}

bool RandomPlayer::Ask(const YesNoQuestion& /*question*/) {
    return stream_.Below(2) == 0;
}

void RandomPlayer::Tell(const Notice& /*notice*/) {}

int RandomPlayer::PickTable(const TableQuestion& question) {
    const auto columns = static_cast<int>(question.columns.size()) - 1;
    int column = stream_.Below(columns) + 1;
    while (!question.columns.at(static_cast<std::size_t>(column)).enabled)
        column = stream_.Below(columns) + 1;
    return column;
}

EndOfTermAnswer RandomPlayer::EndOfTerm(const EndOfTermQuestion& question) {
    auto options = question.options;
    if (stream_.Below(8) == 0) {
        const auto box = static_cast<Option>(1 + stream_.Below(static_cast<int>(kOptionCaptions.size()) - 1));
        options.Set(box, !options[box]);
    }
    return {static_cast<EndOfTermChoice>(stream_.Below(4) + 1), options};
}

std::optional<TransferAnswer> RandomPlayer::Transfer(const TransferQuestion& question) {
    if (stream_.Below(static_cast<int>(question.careers.size()) + 1) == 0)
        return std::nullopt;
    return TransferTo(stream_, AnyOf(stream_, question.careers), question);
}

MusterPress RandomPlayer::Muster(const MusterQuestion& question) {
    std::vector<MusterButton> buttons = {MusterButton::Done};
    if (question.cashEnabled)
        buttons.push_back(MusterButton::Cash);
    if (question.materialEnabled)
        buttons.push_back(MusterButton::Material);
    if (question.threeCashEnabled)
        buttons.push_back(MusterButton::ThreeCashRestMaterial);
    const auto button = buttons[static_cast<std::size_t>(stream_.Below(static_cast<int>(buttons.size())))];
    return {button, question.gamblerEnabled && stream_.Below(2) == 0};
}

EndOfTermAnswer PolicyPlayer::EndOfTerm(const EndOfTermQuestion& question) {
    return {HasServed(question.termsTotal) ? EndOfTermChoice::MusterOut : EndOfTermChoice::ReEnlist, question.options};
}

bool PolicyPlayer::HasServed(int termsTotal) const {
    return termsTotal - 1 >= terms_ || termsTotal == kTermLimit;  // the opening term is no term of service
}

std::optional<TransferAnswer> PolicyPlayer::Transfer(const TransferQuestion& question) {
    if (HasServed(session_.character.TermsTotal))
        return std::nullopt;
    const auto& left = session_.selection.career;
    const auto* career =
        AnyOf(stream(), question.careers, [&](std::string_view name) { return name == kPrisoner || name == left; });
    if (career == nullptr)
        career = AnyOf(stream(), question.careers, [](std::string_view name) { return name == kPrisoner; });
    return TransferTo(stream(), career, question);
}

MusterPress PolicyPlayer::Muster(const MusterQuestion& question) {
    if (question.cashEnabled)
        return {MusterButton::Cash, false};
    return {question.materialEnabled ? MusterButton::Material : MusterButton::Done, false};
}

}  // namespace korvane::play
