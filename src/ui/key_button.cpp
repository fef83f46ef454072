#include "ui/key_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include "ui/looks.h"

namespace korvane::ui {

void KeyButton::SetKey(const QString& key) {
    key_ = key;
    setToolTip(tr("Key %1").arg(key));
    updateGeometry();
}

int KeyButton::KeyRoom() const {
    return fontMetrics().horizontalAdvance(key_) + fontMetrics().averageCharWidth();
}

QSize KeyButton::sizeHint() const {
    const auto hint = QPushButton::sizeHint();
    return {hint.width() + 2 * KeyRoom(), hint.height()};
}

void KeyButton::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionButton face;
    initStyleOption(&face);
    painter.drawControl(QStyle::CE_PushButtonBevel, face);
    const auto inside = style()->subElementRect(QStyle::SE_PushButtonContents, &face, this);
    auto text = face;
    text.rect = inside;
    // In the middle, unless it would stand on the key there.
    if (fontMetrics().horizontalAdvance(face.text) + 2 * KeyRoom() > inside.width())
        text.rect.setLeft(inside.left() + KeyRoom());
    painter.drawControl(QStyle::CE_PushButtonLabel, text);
    if ((face.state & QStyle::State_HasFocus) != 0) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(face);
        focus.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &face, this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
    painter.setPen(isEnabled() ? Dimmed(palette(), QPalette::Button)
                               : palette().color(QPalette::Disabled, QPalette::ButtonText));
    // As the key's own cap.
    const int across = KeyRoom() - fontMetrics().averageCharWidth() / 4;
    QRectF cap(inside.left(), 0, across, fontMetrics().height());
    cap.moveCenter({cap.center().x(), QRectF(inside).center().y()});
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawRoundedRect(cap.adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter.drawText(cap, Qt::AlignCenter, key_);
}

}  // namespace korvane::ui
