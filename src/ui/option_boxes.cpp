#include "ui/option_boxes.h"

#include <QGridLayout>

#include "ui/qt_text.h"

namespace korvane::ui {

namespace {

// What each option does, for those who point at it; in the order of the captions.
constexpr std::array<const char*, kOptionCaptions.size()> kExplanations = {
    "Every choice is answered at random, without a dialog",
    "Neither a mishap nor an event ends the career",
    "At the end of the life a package of skills is chosen, each at level 1 at least",
    "At the end of the life two skills are raised, each by a connection with somebody",
    "The skill table of each term is chosen by a die",
    "Has no effect on advancement",
    "No skill that is held is raised above level 4",
    "The skills stand with the highest level first",
    "Entry, graduation and the like of a pre-career education succeed",
};

}  // namespace

OptionBoxes::OptionBoxes(std::span<const Option> order, int columns) {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins({});
    int place = 0;
    QWidget* before = nullptr;
    for (const auto option : order) {
        const auto number = static_cast<std::size_t>(option);
        auto& box = boxes_.at(number);
        box.setText(ToCaption(CaptionOf(option)));
        box.setObjectName(ToQt(CaptionOf(option)));
        box.setToolTip(tr(kExplanations.at(number)));
        grid->addWidget(&box, place / columns, place % columns);
        ++place;
        connect(&box, &QCheckBox::clicked, this, [this] {
            if (changed)
                changed(Ticked());
        });
        if (before != nullptr)
            setTabOrder(before, &box);
        before = &box;
    }
}

void OptionBoxes::Show(const Options& options) {
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        boxes_.at(i).setChecked(options[static_cast<Option>(i)]);
}

Options OptionBoxes::Ticked() const {
    Options options;
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        options.Set(static_cast<Option>(i), boxes_.at(i).isChecked());
    return options;
}

}  // namespace korvane::ui
