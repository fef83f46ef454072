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

// The place of the answer, from 1; 0 where the player may leave the question and did.
int Answer(Session& session, std::string_view title, const Alternatives& alternatives, bool automatic, bool mayLeave) {
    const int focus = std::exchange(session.choice.focusPreset, 0);
    const auto count = static_cast<std::size_t>(alternatives.count);
    return automatic ? session.seams.dice->Draw(alternatives.count) + 1
                     : session.seams.player->Choose({title, {alternatives.texts.data(), count}, focus, mayLeave});
}

void Keep(ChoiceState& choice, const Alternatives& alternatives, int place, bool automatic) {
    choice.PickPlace = place;
    choice.PickIndex = automatic ? place - 1 : place;
    choice.PickText = place == 0 ? std::string_view() : alternatives.texts.at(static_cast<std::size_t>(place - 1));
}

int Choose(Session& session, std::string_view title, std::string_view options, bool mayLeave) {
    const bool automatic = std::exchange(session.choice.automaticOnce, false) || session.Automatic();
    const auto alternatives = SplitAlternatives(options);
    const int place = Answer(session, title, alternatives, automatic, mayLeave);
    Keep(session.choice, alternatives, place, automatic);
    return place;
}

}  // namespace

Count ChooseOption(Session& session, std::string_view title, std::string_view options) {
    Choose(session, title, options, false);
    return session.choice.PickIndex;
}

int ChoosePlace(Session& session, std::string_view title, std::string_view options) {
    return Choose(session, title, options, false);
}

int ChoosePlaceOrLeave(Session& session, std::string_view title, std::string_view options) {
    return Choose(session, title, options, true);
}

std::string_view AlternativeAt(std::string_view options, int place) {
    return SplitAlternatives(options).texts.at(static_cast<std::size_t>(place - 1));
}

}  // namespace korvane
