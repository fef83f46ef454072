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

SPICKBOX::SPICKBOX(QWidget* parent) : NeededDialog(parent), recent_(*this), back_(*this), odds_(*this), title_(this) {
    setObjectName("SPICKBOX");
    // The dialog's size is told by its texts: the way back must do with the margin beside them.
    back_.setToolButtonStyle(Qt::ToolButtonIconOnly);
    back_.setPopupMode(QToolButton::DelayedPopup);
    back_.setAutoRaise(true);
    odds_.setText(tr("%"));
    odds_.setAutoRaise(true);
    odds_.fit = [this] { Fit(); };
    title_.setObjectName("title");
    title_.setAlignment(Qt::AlignCenter);
    title_.setTextFormat(Qt::PlainText);
}

void SPICKBOX::AddButton() {
    auto* const button = new KeyButton(this);
    const int number = static_cast<int>(buttons_.size()) + 1;
    button->setObjectName(QString("pick%1").arg(number));
    button->SetKey(number <= 9 ? QString::number(number) : QString(QChar('A' + number - 10)));
    connect(button, &QPushButton::clicked, this, [this, number] {
        picked_ = number;
        accept();
    });
    buttons_.push_back(button);
}

void SPICKBOX::SetQuestion(const ChoiceQuestion& question) {
    setWindowTitle(ToQt(question.title));
    title_.setText(ToQt(question.title));
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
    longest_ = static_cast<int>(longest);
    Place();
    CenterOnScreen(*this);
    buttons_.at(static_cast<std::size_t>(question.focus < shown_ ? question.focus : 0))->setFocus();
}

void SPICKBOX::Place() {
    const int margin = FromTwips(*this, kButtonMargin);
    const int told = FromTwips(*this, kWidthPerCharacter * longest_ + kButtonMargin);
    int button_width = told;
    for (const auto* const button : Shown())  // wide letters may need more than they are allowed
        button_width =
            std::max(button_width, fontMetrics().horizontalAdvance(button->text()) + button->KeyRoom() + margin / 2);
    const int title_width = fontMetrics().horizontalAdvance(title_.text()) + margin;
    const int told_width = std::max(
        {FromTwips(*this, kWidthPerCharacter * longest_ + kDialogMargin), button_width + 4 * margin, title_width});
    // Two dozen rows may be more than a small screen has.
    const auto room = screen()->availableGeometry().size() * 9 / 10;
    const auto panel = odds_.IsOpen() ? odds_.panel().sizeHint() + QSize(2 * margin, margin) : QSize(0, 0);
    const int width = std::max(told_width, std::min(panel.width(), room.width()));
    const int height = std::min(FromTwips(*this, kRowHeight * (shown_ + 1)), room.height() - panel.height());
    setFixedSize(width, height + panel.height());
    if (odds_.IsOpen())
        odds_.panel().setGeometry(margin, height, width - 2 * margin, panel.height() - margin);

    const int title_height = fontMetrics().height() + margin / 2;
    title_.setGeometry(0, 0, width, title_height);
    const int side = std::min(FromTwips(*this, (kDialogMargin - kButtonMargin) / 2), (width - button_width) / 2);
    back_.setGeometry(width - side, height - side, side, side);
    odds_.setGeometry(0, height - side, side, side);
    const int row = (height - title_height) / shown_;
    const int button_height = std::min(buttons_.front()->sizeHint().height(), row);
    int top = title_height + (row - button_height) / 2;
    const int left = width / 2 - button_width / 2;
    for (auto* const button : Shown()) {
        button->setGeometry(left, top, button_width, button_height);
        top += row;
    }
}

// Grows and shrinks downward, as far as the screen lets it: no answer moves from under the hand.
void SPICKBOX::Fit() {
    const auto corner = geometry().topLeft();
    Place();
    if (!isVisible())
        return CenterOnScreen(*this);
    auto place = QRect(corner, size());
    place.moveBottom(std::min(place.bottom(), screen()->availableGeometry().bottom()));
    setGeometry(place);
}

void SPICKBOX::keyPressEvent(QKeyEvent* event) {
    int digit = DigitOf(*event);
    const bool is_letter = event->key() >= Qt::Key_A && event->key() <= Qt::Key_O && !event->isAutoRepeat() &&
                           (event->modifiers() & ~Qt::ShiftModifier) == 0;
    if (is_letter)
        digit = event->key() - Qt::Key_A + 10;
    if (digit >= 1 && digit <= shown_)
        buttons_[static_cast<std::size_t>(digit - 1)]->click();
    else
        NeededDialog::keyPressEvent(event);
}

}  // namespace korvane::ui
