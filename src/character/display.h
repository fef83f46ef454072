// The display: what a front end shows of a generation in progress. Each member says what changed; the record tells the
// rest.
#pragma once

#include <cstddef>
#include <string_view>

namespace korvane {

class Display {
  public:
    virtual ~Display() = default;
    virtual void HistoryChanged() {}
    virtual void SkillsChanged() {}
    virtual void SummaryChanged() {}
    // A race, career or assignment was selected, or the lists to select from changed.
    virtual void SelectionChanged() {}
    // A box was changed in a dialog.
    virtual void OptionsChanged() {}
    // The controls of a new character are locked while a career runs.
    virtual void ControlsLocked(bool /*locked*/) noexcept {}
};

// For those who count what the rules do.
class Observer {
  public:
    virtual ~Observer() = default;
    // The row of a code was carried out; `row` is its place in the chain of that name, from 0.
    virtual void CarriedOut(std::string_view chain, std::size_t row) = 0;
};

}  // namespace korvane
