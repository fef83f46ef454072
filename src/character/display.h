// The display: what a front end shows of a generation in progress. Each member says what changed; the record tells the
// rest.
#pragma once

#include <cstddef>
#include <string_view>

#include "base/text_file.h"
#include "character/rolled_check.h"

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

// For those who note what the rules do.
class Observer {
  public:
    virtual ~Observer() = default;
    // The row of a code was carried out; `row` is its place in the chain of that name, from 0.
    virtual void CarriedOut(std::string_view /*chain*/, std::size_t /*row*/) {}
    // A new character is about to be started.
    virtual void CharacterBegins() {}
    // It was started; what follows isn't its beginning any more.
    virtual void CharacterStarted() {}
    virtual void CheckRolled(const RolledCheck& /*rolled*/) {}
    // A rule file was loaded for the life.
    virtual void FileLoaded(const TextFile& /*file*/) {}
};

}  // namespace korvane
