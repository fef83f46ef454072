#include "ui/option_boxes.h"

#include <QGridLayout>

#include "ui/qt_text.h"

namespace korvane::ui {

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
        box.setToolTip(ToQt(kOptionExplanations.at(number)));
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
