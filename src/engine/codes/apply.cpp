#include "engine/codes/apply.h"

#include <algorithm>

namespace korvane {

void Apply(Session& session, const Set& effect) {
    session.character.*effect.field = effect.value;
}

void Apply(Session& session, const Add& effect) {
    session.character.*effect.field += effect.amount;
}

void Apply(Session& session, const Lower& effect) {
    auto& value = session.character.Characteristic[effect.slot];
    value = std::max(value - effect.amount, effect.floor);
}

void Apply(Session& session, const Call& effect) {
    effect.function(session);
}

void ApplyAll(Session& session, const Effects& effects) {
    for (const auto& effect : effects)
        std::visit([&](const auto& kind) { Apply(session, kind); }, effect);
}

}  // namespace korvane
