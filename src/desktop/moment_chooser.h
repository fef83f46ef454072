// The way back to any question: by the line of the history that followed it.
#pragma once

#include <cstddef>
#include <optional>

#include "play/recorded_life.h"
#include "ui/input_guard.h"
#include "ui/story_list.h"

namespace korvane {

// The question that a row of the history came from; nothing before the first.
std::optional<std::size_t> MomentOfRow(const play::RecordedLife& life, int row);

// Lets the player choose a question in the history: Return, a double click or the list's menu go back to the current
// row's; Escape gives nothing. Nothing else acts until then.
std::optional<std::size_t> ChooseMoment(ui::StoryList& history, const play::RecordedLife& life, ui::InputGuard& guard);

}  // namespace korvane
