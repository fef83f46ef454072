// Choices of several items from a list.
#pragma once

#include <array>
#include <bitset>
#include <span>
#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// The items of the list dialog. The list keeps them sorted without regard to case; equal ones stay in the order added.
// The texts belong to the caller.
class ListItems {
  public:
    static constexpr std::size_t kMost = 64;

    ListItems() = default;
    ListItems(std::span<const std::string_view> items);
    void Add(std::string_view item);
    std::span<const std::string_view> texts() const { return {texts_.data(), count_}; }
    int size() const { return static_cast<int>(count_); }

  private:
    std::array<std::string_view, kMost> texts_;
    std::size_t count_ = 0;
};

// The marks of a list, numbered from 0.
using ListMarks = std::bitset<ListItems::kMost>;

// Shows the list and gives what the player marked; none after Cancel. Limits below 1 count as 1.
ListMarks AskForItems(Session& session, int maximum, int minimum, std::string_view prompt, const ListItems& items);

// Lets the player mark between `minimum` and `maximum` of the items, skill strings, and grants each. In automatic mode
// an item is drawn for each number from the maximum up to the minimum: one when they are equal, none when the maximum
// is greater.
void SelectSkillsFromList(Session& session, int maximum, int minimum, std::string_view prompt, const ListItems& items);

}  // namespace korvane
