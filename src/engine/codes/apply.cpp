#include "engine/codes/apply.h"

#include <algorithm>
#include <limits>

#include "character/checks.h"
#include "engine/associates.h"
#include "engine/hazards.h"
#include "engine/injury.h"
#include "engine/prison.h"
#include "engine/skill_roll.h"
#include "skills/any_skill.h"
#include "skills/choice.h"
#include "skills/grant.h"
#include "skills/improve.h"
#include "skills/list_choice.h"
#include "skills/modifiers.h"

namespace korvane::codes {

namespace {

// ---- Numbers

void Apply(Session& session, const Set& effect) {
    session.character.*effect.field = effect.value;
}

void Apply(Session& session, const Add& effect) {
    session.character.*effect.field += effect.amount;
}

void Apply(Session& session, const AtLeast& effect) {
    auto& value = session.character.*effect.field;
    value = std::max<int>(value, effect.value);
}

void Apply(Session& session, const Alter& effect) {
    session.character.Characteristic[effect.slot] += effect.amount;
}

void Apply(Session& session, const Lower& effect) {
    auto& value = session.character.Characteristic[effect.slot];
    value = std::max(value - effect.amount, 1);
}

// ---- Lines, skills and people

void Apply(Session& session, const Line& effect) {
    AddHistory(session, effect.text);
}

void Apply(Session& session, const Grant& effect) {
    GrantSkill(session, effect.skill);
}

void Apply(Session& session, const Pick& effect) {
    SelectSkillsFromList(session, 1, 1, effect.title, ListItems(effect.items));
}

void Apply(Session& session, const Choose& effect) {
    const auto skill = korvane::Choose(session, effect.title, effect.options).text;
    if (!effect.line.empty())
        AddHistory(session, effect.line);
    GrantSkill(session, skill);
}

void Apply(Session& session, const ChooseInVain& effect) {
    korvane::Choose(session, effect.title, effect.options);
}

void Apply(Session& session, const AnySkill& /*effect*/) {
    SelectAnySkill(session, 1);
}

void Apply(Session& session, const AnySkillAsked& /*effect*/) {
    SelectAnySkillAsked(session);
}

void Apply(Session& session, const Improve& /*effect*/) {
    ImproveHeldSkill(session);
}

void Apply(Session& session, const Enemy& effect) {
    AddEnemy(session, effect.text);
}

void Apply(Session& session, const Contact& effect) {
    AddContact(session, effect.text);
}

void Apply(Session& session, const Rival& effect) {
    AddRival(session, effect.text);
}

void Apply(Session& session, const Ally& effect) {
    AddAlly(session, effect.text);
}

// ---- Hazards

int InjuryRoll(Session& session, InjuryDice dice) {
    if (dice == InjuryDice::TablesOwn)
        return 0;
    if (dice == InjuryDice::Row2)
        return 2;
    const int first = Roll(session, 1, 6);
    const int second = Roll(session, 1, 6);
    return dice == InjuryDice::WorstOfTwo ? std::min(first, second) : std::max(first, second);
}

void Apply(Session& session, const Hurt& effect) {
    int roll = InjuryRoll(session, effect.dice);
    Injure(session, roll);
}

void Apply(Session& session, const Reduce& effect) {
    ReduceCharacteristic(session, effect.slot, effect.amount);
}

void Apply(Session& session, const GoToPrison& /*effect*/) {
    Imprison(session);
}

void Apply(Session& session, const SufferMishap& /*effect*/) {
    RollMishap(session);
}

// ---- Branches

void Apply(Session& session, const Either& effect) {
    Texts texts;
    for (const auto& alternative : effect.alternatives)
        texts.push_back(alternative.text);
    const auto place = static_cast<std::size_t>(korvane::Choose(session, effect.title, texts).place);
    ApplyAll(session, effect.alternatives[place - 1].effects);
}

void Apply(Session& session, const Ask& effect) {
    ApplyAll(session, AskYesNo(session, {effect.question, effect.caption}) ? effect.yes : effect.no);
}

void Apply(Session& session, const Check& effect) {
    ApplyAll(session, RollCheck(session, effect.check, 0) >= 0 ? effect.success : effect.failure);
}

void Apply(Session& session, const SkillTest& effect) {
    int best = std::numeric_limits<int>::min();
    for (const auto skill : effect.skills)
        best = std::max(best, SkillRoll(session, skill, effect.target, effect.skills.size() == 1));
    ApplyAll(session, best >= 0 ? effect.success : effect.failure);
}

void Apply(Session& session, const BestTest& effect) {
    const bool made = RollBest(session, effect.skills, effect.target) >= 0;
    ApplyAll(session, made ? effect.success : effect.failure);
}

void Apply(Session& session, const OnRoll& effect) {
    const int total = Roll(session, effect.count, effect.sides);
    for (const auto& band : effect.bands)
        if (total <= band.upTo) {
            ApplyAll(session, band.effects);
            return;
        }
}

void Apply(Session& session, const Repeat& effect) {
    const int times = Roll(session, 1, effect.sides);
    for (int i = 0; i < times; ++i)
        ApplyAll(session, effect.effects);
}

void Apply(Session& session, const Call& effect) {
    effect.function(session);
}

}  // namespace

void ApplyAll(Session& session, const Effects& effects) {
    for (const auto& effect : effects)
        std::visit([&](const auto& kind) { Apply(session, kind); }, effect.kind);
}

}  // namespace korvane::codes
