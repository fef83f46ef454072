#include "skills/choice.h"

#include <utility>

#include "base/encoding.h"

namespace korvane {

namespace {

constexpr std::size_t kMostAlternatives = 24;

Choice Answer(Session& session, std::string_view title, Alternatives alternatives, bool mayLeave) {
    if (alternatives.size() > kMostAlternatives)
        throw RuleError(RuleError::Kind::Subscript,
                        Concat("the choice ", Quoted(title), " has more than ", kMostAlternatives, " alternatives"));
    auto& state = session.choice;
    const bool automatic = std::exchange(state.automaticOnce, false) || session.Automatic();
    const int focus = std::exchange(state.focusPreset, 0);
    const int place = automatic ? session.seams.dice->Draw(static_cast<int>(alternatives.size())) + 1
                                : session.seams.player->Choose({title, alternatives, focus, mayLeave});
    const auto text = place == 0 ? std::string_view() : alternatives[static_cast<std::size_t>(place - 1)];
    state.PickIndex = automatic ? place - 1 : place;
    state.PickText = text;
    return {place, text};
}

}  // namespace

Choice Choose(Session& session, std::string_view title, Alternatives alternatives) {
    return Answer(session, title, alternatives, false);
}

Choice ChooseOrLeave(Session& session, std::string_view title, Alternatives alternatives) {
    return Answer(session, title, alternatives, true);
}

Count ChooseOption(Session& session, std::string_view title, Alternatives alternatives) {
    Answer(session, title, alternatives, false);
    return session.choice.PickIndex;
}

}  // namespace korvane
