// The tick boxes of the generation's options, as the main window and the end of a term show them.
#pragma once

#include <QCheckBox>
#include <QWidget>
#include <array>
#include <functional>
#include <span>

#include "character/options.h"

namespace korvane::ui {

class OptionBoxes : public QWidget {
  public:
    // The boxes stand in `order`, in `columns` columns.
    OptionBoxes(std::span<const Option> order, int columns);

    // Called when the player changes a box.
    std::function<void(const Options&)> changed;

    // Shows the ticks; calls nothing.
    void Show(const Options& options);
    Options Ticked() const;

  private:
    std::array<QCheckBox, kOptionCaptions.size()> boxes_;
};

}  // namespace korvane::ui
