#include "ui/spickbox.h"

#include <QKeyEvent>
#include <QScreen>
#include <algorithm>

#include "base/text.h"
#include "ui/qt_text.h"

namespace korvane::ui {

namespace {

// In twips.
constexpr int kWidthPerCharacter = 100;
constexpr int kButtonMargin = 150;
constexpr int kDialogMargin = 800;
constexpr int kRowHeight = 500;

}  // namespace

SPICKBOX::SPICKBOX(QWidget* parent) : NeededDialog(parent) {
    setObjectName("SPICKBOX");
    // Without further buttons in its frame, a narrow dialog has room for its title.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
}

void SPICKBOX::AddButton() {
    auto* const button = new QPushButton(this);
    const int number = static_cast<int>(buttons_.size()) + 1;
    button->setObjectName(QString("pick%1").arg(number));
    if (number <= 9)
        button->setToolTip(tr("Key %1").arg(number));
    connect(button, &QPushButton::clicked, this, [this, number] {
        picked_ = number;
        accept();
    });
    buttons_.push_back(button);
}

void SPICKBOX::SetQuestion(const ChoiceQuestion& question) {
    setWindowTitle(ToQt(question.title));
    picked_ = 0;
    shown_ = static_cast<int>(question.options.size());
    while (buttons_.size() < question.options.size())
        AddButton();
    auto longest = CharacterCount(question.title);
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        buttons_[i]->setVisible(i < question.options.size());
        if (i >= question.options.size())
            continue;
        buttons_[i]->setText(ToCaption(question.options[i]));
        buttons_[i]->setAccessibleName(question.options[i].empty() ? tr("(empty)") : ToQt(question.options[i]));
        longest = std::max(longest, CharacterCount(question.options[i]));
    }
    Place(static_cast<int>(longest));
    buttons_.at(static_cast<std::size_t>(question.focus < shown_ ? question.focus : 0))->setFocus();
}

void SPICKBOX::Place(int longest) {
    const int told = FromTwips(*this, kWidthPerCharacter * longest + kButtonMargin);
    int width = told;
    int height = 0;
    for (int i = 0; i < shown_; ++i) {
        const auto hint = buttons_.at(static_cast<std::size_t>(i))->sizeHint();
        const auto caption = buttons_.at(static_cast<std::size_t>(i))->text();
        // Wide letters may need more than they are allowed.
        width = std::max(width, fontMetrics().horizontalAdvance(caption) + FromTwips(*this, kButtonMargin));
        height = std::max(height, hint.height());
    }
    // Two dozen rows may be more than a small screen has.
    const int room = screen()->availableGeometry().height() * 9 / 10;
    const int row = std::min(FromTwips(*this, kRowHeight), room / (shown_ + 1));
    height = std::min(height, row);
    setFixedSize(FromTwips(*this, kWidthPerCharacter * longest + kDialogMargin) + width - told, row * (shown_ + 1));
    for (int i = 0; i < shown_; ++i)
        buttons_[static_cast<std::size_t>(i)]->setGeometry(this->width() / 2 - width / 2,
                                                           row / 2 + row * i + (row - height) / 2, width, height);
    CenterOnScreen(*this);
}

void SPICKBOX::keyPressEvent(QKeyEvent* event) {
    const int digit = DigitOf(*event);
    if (digit >= 1 && digit <= shown_)
        buttons_[static_cast<std::size_t>(digit - 1)]->click();
    else
        NeededDialog::keyPressEvent(event);
}

}  // namespace korvane::ui
