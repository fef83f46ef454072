#include "skills/choice.h"

#include <array>
#include <utility>

namespace korvane {

namespace {

constexpr int kMostAlternatives = 24;

struct Alternatives {
    std::array<std::string_view, kMostAlternatives> texts;
    int count = 0;

    void Add(std::string_view text) {
        if (count == kMostAlternatives)
            throw RuleError(RuleError::Kind::Subscript,
                            Concat("a choice has more than ", kMostAlternatives, " alternatives"));
        texts.at(static_cast<std::size_t>(count++)) = text;
    }
};

Alternatives SplitAlternatives(std::string_view options) {
    Alternatives alternatives;
    for (auto end = options.find('/'); end != std::string_view::npos; end = options.find('/')) {
        alternatives.Add(options.substr(0, end));
        options.remove_prefix(end + 1);
    }
    alternatives.Add(options);
    return alternatives;
}

}  // namespace

Count ChooseOption(Session& session, std::string_view title, std::string_view options) {
    auto& choice = session.choice;
    const bool automatic = std::exchange(choice.automaticOnce, false) || session.Automatic();
    const int focus = std::exchange(choice.focusPreset, 0);
    const auto alternatives = SplitAlternatives(options);
    const auto count = static_cast<std::size_t>(alternatives.count);
    choice.PickPlace = automatic ? session.seams.dice->Draw(alternatives.count) + 1
                                 : session.seams.player->Choose({title, {alternatives.texts.data(), count}, focus});
    choice.PickIndex = automatic ? choice.PickPlace - 1 : choice.PickPlace;
    choice.PickText = alternatives.texts.at(static_cast<std::size_t>(choice.PickPlace - 1));
    return choice.PickIndex;
}

int ChoosePlace(Session& session, std::string_view title, std::string_view options) {
    ChooseOption(session, title, options);
    return session.choice.PickPlace;
}

std::string_view AlternativeAt(std::string_view options, int place) {
    return SplitAlternatives(options).texts.at(static_cast<std::size_t>(place - 1));
}

}  // namespace korvane
