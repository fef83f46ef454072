#include "ui/input_guard.h"

#include <QApplication>
#include <QInputEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <stdexcept>

namespace korvane::ui {

namespace {

bool IsInput(const QEvent& event) {
    switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TabletPress:
        case QEvent::Drop:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

// Whether the key only moves about, or is half of another.
bool Navigates(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Shift:
        case Qt::Key_Control:
        case Qt::Key_Alt:
        case Qt::Key_AltGr:
        case Qt::Key_Meta:
            return true;
        default:
            return event.matches(QKeySequence::Copy);
    }
}

bool TakesText(const QWidget& widget) {
    return qobject_cast<const QLineEdit*>(&widget) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(&widget) != nullptr;
}

// Whether the event may answer a question: a press of the mouse, or of a key that does more than to move about or to
// write.
bool Answers(const QWidget& widget, const QEvent& event) {
    switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::TouchBegin:
        case QEvent::TabletPress:
        case QEvent::Shortcut:
        case QEvent::Close:
            return true;
        case QEvent::KeyPress: {
            const auto& key = static_cast<const QKeyEvent&>(event);
            const bool ends = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Escape;
            return ends || (!Navigates(key) && !TakesText(widget));
        }
        default:
            return false;
    }
}

// The event's own time, in milliseconds; 0 where it has none.
quint64 TimeOf(const QEvent& event) {
    return event.isInputEvent() ? static_cast<const QInputEvent&>(event).timestamp() : 0;
}

bool BelongsTo(const QWidget* widget, const QWidget& window) {
    while (widget != nullptr && widget != &window)
        widget = widget->parentWidget();
    return widget != nullptr;
}

}  // namespace

InputGuard::InputGuard() {
    QCoreApplication::instance()->installEventFilter(this);
}

int InputGuard::Run(QDialog& dialog) {
    if (dialog.isVisible())
        throw std::logic_error("a question came while the one before it was open");
    const Asking asking(*this, dialog);
    return dialog.exec();
}

InputGuard::Asking::Asking(InputGuard& guard, QWidget& dialog) : guard_(guard) {
    guard_.asking_.emplace_back(&dialog);
    guard_.NoteChange();
}

InputGuard::Asking::~Asking() {
    guard_.asking_.pop_back();
    guard_.NoteChange();
}

void InputGuard::NoteChange() {
    sinceChange_.start();
    beforeChange_ = lastPress_;
}

void InputGuard::EndProgram(int status) {
    ended_ = true;
    QCoreApplication::exit(status);
}

bool InputGuard::MayAct(const QWidget& widget) const {
    if (ended_)
        return false;
    if (working_ == 0 && asking_.empty())
        return true;
    // A list or menu that hangs from a control is there only because that was allowed.
    if (widget.window()->windowType() == Qt::Popup)
        return true;
    return !asking_.empty() && asking_.back() != nullptr && asking_.back()->isVisible() &&
           BelongsTo(&widget, *asking_.back());
}

bool InputGuard::IsEarly(const QEvent& event) const {
    const int interval = QApplication::doubleClickInterval();
    if (!sinceChange_.isValid() || interval == 0)
        return false;
    // The times are the system's, which wrap around; one that is far off is of another clock.
    constexpr qint32 kFarOff = -60000;
    const auto time = TimeOf(event);
    const auto since = static_cast<qint32>(static_cast<quint32>(time) - static_cast<quint32>(beforeChange_));
    const bool by_its_time = time != 0 && beforeChange_ != 0 && since > kFarOff && since < interval;
    return by_its_time || sinceChange_.elapsed() < interval;
}

void InputGuard::FollowKey(const QKeyEvent& event) {
    const auto time = event.timestamp();
    const bool down = event.type() != QEvent::KeyRelease;
    const bool timed = QApplication::doubleClickInterval() > 0 && time != 0 && lastKey_.time != 0;
    const bool same = timed && event.key() == lastKey_.key;
    if (same && down && lastKey_.down && time == lastKey_.time)
        return;  // the press that was asked for as a shortcut
    // A repetition comes as a release and a press at one time; or without a release, where that went elsewhere.
    constexpr quint64 kNoHand = 5;
    constexpr quint64 kLongestDelay = 1000;
    const bool at_once = same && !lastKey_.down && time <= lastKey_.time + kNoHand;
    const bool still_down = same && lastKey_.down && time <= lastKey_.time + kLongestDelay;
    lastKey_ = {event.key(), down, down && (event.isAutoRepeat() || at_once || still_down), time};
}

bool InputGuard::eventFilter(QObject* watched, QEvent* event) {
    const bool at_window = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (event->type() == QEvent::ShortcutOverride || (watched->isWindowType() && at_window))
        FollowKey(static_cast<const QKeyEvent&>(*event));
    if (!watched->isWidgetType())
        return false;
    const auto& widget = static_cast<const QWidget&>(*watched);
    // A dialog's own messages are questions too.
    if (event->type() == QEvent::Show && widget.isWindow() && widget.windowType() == Qt::Dialog)
        NoteChange();
    if (!IsInput(*event))
        return false;
    // A window that closes itself is no input.
    if (event->type() == QEvent::Close && !event->spontaneous())
        return false;
    if (!MayAct(widget)) {
        event->ignore();
        return true;
    }
    if (!Answers(widget, *event))
        return false;
    const bool is_key = event->type() == QEvent::KeyPress || event->type() == QEvent::Shortcut;
    if ((is_key && lastKey_.repeats) || (widget.window()->windowType() != Qt::Popup && IsEarly(*event))) {
        event->ignore();
        return true;
    }
    if (const auto time = TimeOf(*event); time != 0)
        lastPress_ = time;
    return false;
}

}  // namespace korvane::ui
