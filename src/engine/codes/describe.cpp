#include "engine/codes/describe.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "base/text.h"
#include "engine/codes/fields.h"

namespace korvane::codes {

namespace {

std::string_view NameOf(Field field) {
    const auto* const named = std::ranges::find(kFieldNames, field, &FieldName::field);
    if (named == kFieldNames.end())
        throw std::logic_error("a number of the character that rows change has no name");
    return named->name;
}

std::string Signed(int amount) {
    return Concat(amount < 0 ? "" : "+", amount);
}

std::string_view CharacteristicName(int slot) {
    constexpr std::array<std::string_view, 8> kNames = {"", "Str", "Dex", "End", "Int", "Edu", "Soc", "PSI"};
    return kNames.at(static_cast<std::size_t>(slot));
}

std::string Listed(const Texts& texts, std::string_view last) {
    std::string list;
    for (const auto& text : texts)
        AppendAll(list, list.empty() ? "" : &text == &texts.back() ? last : ", ", text.empty() ? "nothing" : text);
    return list;
}

// An outcome, or what stands for none.
std::string Outcome(const Effects& effects) {
    auto told = Describe(effects);
    return told.empty() ? "nothing" : told;
}

std::string Tell(const Set& effect) {
    if (effect.field == kLeave)
        return effect.value == 0 ? "the character stays in the career" : "the character leaves the career";
    if (effect.value == kAutomaticSuccess)
        return Concat(NameOf(effect.field), " succeeds");
    return Concat(NameOf(effect.field), " set to ", effect.value);
}
std::string Tell(const Add& effect) {
    return Concat(NameOf(effect.field), " ", Signed(effect.amount));
}
std::string Tell(const AtLeast& effect) {
    return Concat(NameOf(effect.field), " at least ", effect.value);
}
std::string Tell(const Alter& effect) {
    return Concat(CharacteristicName(effect.slot), " ", Signed(effect.amount));
}
std::string Tell(const Lower& effect) {
    return Concat(CharacteristicName(effect.slot), " -", effect.amount, ", not below 1");
}
std::string Tell(const Line& effect) {
    return Concat("\"", effect.text, "\" is written");
}
std::string Tell(const Grant& effect) {
    return std::string(effect.skill);
}
std::string Tell(const Pick& effect) {
    return Concat("pick ", Listed(effect.items, " or "), " (\"", effect.title, "\")");
}
std::string Tell(const Choose& effect) {
    const auto line = effect.line.empty() ? std::string() : Concat("; \"", effect.line, "\" is written");
    return Concat("choose ", Listed(effect.options, " or "), " (\"", effect.title, "\")", line);
}
std::string Tell(const ChooseInVain& effect) {
    return Concat("choose ", Listed(effect.options, " or "), " (\"", effect.title, "\"), which brings nothing");
}
std::string Tell(const AnySkill& /*effect*/) {
    return "any basic skill";
}
std::string Tell(const AnySkillAsked& /*effect*/) {
    return "any basic skill, asked for in automatic mode too";
}
std::string Tell(const Improve& /*effect*/) {
    return "a held skill improved";
}
std::string Tell(const Enemy& effect) {
    return Concat("enemy \"", effect.text, "\"");
}
std::string Tell(const Contact& effect) {
    return Concat("contact \"", effect.text, "\"");
}
std::string Tell(const Rival& effect) {
    return Concat("rival \"", effect.text, "\"");
}
std::string Tell(const Ally& effect) {
    return Concat("ally \"", effect.text, "\"");
}
std::string Tell(const Hurt& effect) {
    switch (effect.dice) {
        case InjuryDice::TablesOwn:
            return "an injury";
        case InjuryDice::WorstOfTwo:
            return "an injury by the worse of two dice";
        case InjuryDice::BetterOfTwo:
            return "an injury by the better of two dice";
        case InjuryDice::Row2:
            return "a severe injury";
    }
    return {};
}
std::string Tell(const Reduce& effect) {
    return Concat(CharacteristicName(effect.slot), " -", effect.amount, " or care as a debt");
}
std::string Tell(const GoToPrison& /*effect*/) {
    return "prison";
}
std::string Tell(const SufferMishap& /*effect*/) {
    return "a mishap";
}
std::string Tell(const Either& effect) {
    auto told = Concat("choose (\"", effect.title, "\")");
    for (const auto& alternative : effect.alternatives) {
        const bool first = &alternative == &effect.alternatives.front();
        AppendAll(told, first ? ": " : "; or ", "\"", alternative.text, "\" (", Outcome(alternative.effects), ")");
    }
    return told;
}
std::string Tell(const Ask& effect) {
    return Concat("\"", effect.question, "\" Yes (", Outcome(effect.yes), "), No (", Outcome(effect.no), ")");
}
std::string Tell(const Check& effect) {
    return Concat("check \"", effect.check, "\": success (", Outcome(effect.success), "), failure (",
                  Outcome(effect.failure), ")");
}
std::string Tell(const SkillTest& effect) {
    return Concat("2D6 for ", Listed(effect.skills, " and "), effect.skills.size() > 1 ? ", the best counts" : "",
                  ": at most ", effect.target, " (", Outcome(effect.success), "), else (", Outcome(effect.failure),
                  ")");
}
std::string Tell(const BestTest& effect) {
    return Concat("2D6 and the best of ", Listed(effect.skills, " and "), ": ", effect.target, " or more (",
                  Outcome(effect.success), "), else (", Outcome(effect.failure), ")");
}
std::string Tell(const OnRoll& effect) {
    auto told = Concat(effect.count, "D", effect.sides);
    for (const auto& band : effect.bands)
        AppendAll(told, &band == &effect.bands.front() ? ": to " : ", to ", band.upTo, " (", Outcome(band.effects),
                  ")");
    return told;
}
std::string Tell(const Repeat& effect) {
    return Concat("1D", effect.sides, " times (", Describe(effect.effects), ")");
}
std::string Tell(const Call& effect) {
    return std::string(effect.words);
}

}  // namespace

std::string Describe(const Effects& effects) {
    std::string told;
    for (const auto& effect : effects) {
        const auto words = std::visit([](const auto& kind) { return Tell(kind); }, effect.kind);
        AppendAll(told, told.empty() || words.empty() ? "" : "; ", words);
    }
    return told;
}

std::string Describe(const Row& row) {
    if (row.otherwise.empty())
        return Describe(row.effects);
    return Concat(Describe(row.effects), ". Without it: ", Describe(row.otherwise));
}

}  // namespace korvane::codes
