#include "ui/life_view.h"

#include <QAccessible>
#include <QFontInfo>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <algorithm>

#include "ui/looks.h"
#include "ui/qt_text.h"

namespace korvane::ui {

namespace {

QRectF RectOf(const StripSpot& spot) {
    return {spot.x, spot.y, spot.w, spot.h};
}

}  // namespace

LifeView::LifeView() {
    setObjectName("life");
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    hide();
}

QSize LifeView::sizeHint() const {
    constexpr int kLines = 9;
    return {fontMetrics().averageCharWidth() * 60, fontMetrics().lineSpacing() * kLines};
}

QSize LifeView::minimumSizeHint() const {
    constexpr int kLines = 4;  // the marks, the terms and their ages
    return {fontMetrics().averageCharWidth() * 40, fontMetrics().lineSpacing() * kLines};
}

void LifeView::Show(const LifeStrip& strip) {
    strip_ = strip;
    current_ = -1;
    setAccessibleName(ToQt(strip.sentence));
    setAccessibleDescription({});
    setVisible(!strip.blocks.empty());
    Draw();
}

void LifeView::Draw() {
    drawn_ = {};
    if (strip_.blocks.empty())
        return;
    auto look = IsDark(palette()) ? DarkLook() : LightLook();
    look.ground = palette().color(QPalette::Base).name().toStdString();
    look.width = width();
    look.height = height();
    look.fontFamily = font().family().toStdString();
    look.fontSize = QFontInfo(font()).pixelSize();
    picture_ = DrawStrip(strip_, look);
    update();
}

void LifeView::paintEvent(QPaintEvent* /*event*/) {
    if (strip_.blocks.empty())
        return;
    if (drawn_.isNull() || drawn_.devicePixelRatio() != devicePixelRatioF())
        drawn_ = DrawingOf(picture_.svg, size(), devicePixelRatioF());
    QPainter painter(this);
    painter.drawImage(0, 0, drawn_);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    if (current_ >= 0)
        focus.rect =
            RectOf(picture_.spots.at(static_cast<std::size_t>(current_))).toAlignedRect().adjusted(-2, -2, 2, 2);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

void LifeView::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    Draw();
}

void LifeView::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        Draw();
}

bool LifeView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const int spot = SpotAt(help.pos());
    const auto words = spot < 0 ? QString() : ToQt(picture_.spots.at(static_cast<std::size_t>(spot)).words);
    QToolTip::showText(help.globalPos(), words.toHtmlEscaped(), this);
    return true;
}

int LifeView::SpotAt(QPointF place) const {
    const auto spot =
        std::ranges::find_if(picture_.spots, [&](const StripSpot& each) { return RectOf(each).contains(place); });
    return spot == picture_.spots.end() ? -1 : static_cast<int>(spot - picture_.spots.begin());
}

void LifeView::Choose(int spot) const {
    if (spot >= 0 && chosen)
        chosen(static_cast<int>(picture_.spots.at(static_cast<std::size_t>(spot)).line));
}

void LifeView::StepTo(int spot) {
    const int last = static_cast<int>(picture_.spots.size()) - 1;
    if (last < 0)
        return;
    current_ = std::clamp(spot, 0, last);
    setAccessibleDescription(ToQt(picture_.spots.at(static_cast<std::size_t>(current_)).words));
    update();
}

void LifeView::mousePressEvent(QMouseEvent* event) {
    const int spot = event->button() == Qt::LeftButton ? SpotAt(event->position()) : -1;
    if (spot >= 0)
        StepTo(spot);
    Choose(spot);
}

void LifeView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Right:
            return StepTo(current_ + 1);
        case Qt::Key_Left:
            return StepTo(current_ - 1);
        case Qt::Key_Home:
            return StepTo(0);
        case Qt::Key_End:
            return StepTo(static_cast<int>(picture_.spots.size()) - 1);
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            return Choose(current_);
        default:
            return QLabel::keyPressEvent(event);
    }
}

}  // namespace korvane::ui
