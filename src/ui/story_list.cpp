#include "ui/story_list.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <algorithm>

#include "output/strip_svg.h"
#include "ui/looks.h"

namespace korvane::ui {

namespace {

StoryKind KindOf(const QModelIndex& index) {
    return static_cast<StoryKind>(index.data(StoryDelegate::kKindRole).toInt());
}

QString TextOf(const QModelIndex& index) {
    const auto heading = index.data(StoryDelegate::kHeadingRole).toString();
    return heading.isEmpty() ? index.data(Qt::DisplayRole).toString() : heading;
}

// How far a line is set in: by two characters for its sign or picture, but for headings and prose.
int IndentOf(const QStyleOptionViewItem& option, StoryKind kind) {
    const int unit = option.fontMetrics.averageCharWidth();
    return kind == StoryKind::Term || kind == StoryKind::Prose ? unit : 4 * unit;
}

QFont FontOf(const QStyleOptionViewItem& option, StoryKind kind) {
    auto font = option.font;
    font.setBold(kind == StoryKind::Term || kind == StoryKind::Promotion);
    return font;
}

constexpr int kPadding = 2;
int AboveOf(const QStyleOptionViewItem& option, StoryKind kind) {
    return kind == StoryKind::Term ? option.fontMetrics.height() / 2 : kPadding;
}

// All of them read at 4.5 to 1 at least on their background.
QColor ColorOf(const QStyleOptionViewItem& option, StoryKind kind) {
    const auto& palette = option.palette;
    if ((option.state & QStyle::State_Selected) != 0)
        return palette.color(QPalette::HighlightedText);
    const bool dark = IsDark(palette);
    switch (kind) {
        case StoryKind::Gain:
            return dark ? QColor(0x8F, 0xD1, 0x8F) : QColor(0x1E, 0x6B, 0x2E);
        case StoryKind::Loss:
        case StoryKind::Injury:
            return dark ? QColor(0xF0, 0x9A, 0x8C) : QColor(0xA0, 0x2A, 0x1E);
        case StoryKind::Note:
            return Dimmed(palette, QPalette::Base);
        default:
            return palette.color(QPalette::Text);
    }
}

// The sign of a gain or a loss, in a square.
void PaintSign(QPainter& painter, const QRectF& box, bool plus) {
    const auto center = box.center();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(painter.pen().color(), std::max(1.5, box.width() / 7)));
    painter.drawLine(QPointF(box.left(), center.y()), QPointF(box.right(), center.y()));
    if (plus)
        painter.drawLine(QPointF(center.x(), box.top()), QPointF(center.x(), box.bottom()));
}

// The small picture of a mark; kept, as each list has many of them.
QPixmap PictureOf(MarkKind mark, int size, const QColor& color, double pixelRatio) {
    const auto key =
        QString("mark %1 %2 %3 %4").arg(static_cast<int>(mark)).arg(size).arg(color.name()).arg(pixelRatio);
    QPixmap picture;
    if (QPixmapCache::find(key, &picture))
        return picture;
    picture =
        QPixmap::fromImage(DrawingOf(MarkSvg(mark, size, color.name().toStdString()), QSize(size, size), pixelRatio));
    QPixmapCache::insert(key, picture);
    return picture;
}

// What stands before a line, in a square: the picture of its mark, or its sign.
void PaintMark(QPainter& painter, const QRectF& box, StoryKind kind, const QVariant& mark) {
    if (kind == StoryKind::Gain || kind == StoryKind::Loss) {
        PaintSign(painter, box, kind == StoryKind::Gain);
    } else if (mark.isValid()) {
        const auto picture = PictureOf(static_cast<MarkKind>(mark.toInt()), qRound(box.width()), painter.pen().color(),
                                       painter.device()->devicePixelRatioF());
        painter.drawPixmap(box.topLeft(), picture);
    }
}

// What stands already isn't painted again.
void SetData(QListWidgetItem& line, int role, const QVariant& value) {
    if (line.data(role) != value)
        line.setData(role, value);
}

}  // namespace

QSize StoryDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const auto kind = KindOf(index);
    const int width = RowWidth(option);
    const int room = width - IndentOf(option, kind) - option.fontMetrics.averageCharWidth();
    const QFontMetrics metrics(FontOf(option, kind));
    const auto text =
        metrics.boundingRect(0, 0, std::max(room, 40), 10000, WrapIn(room, metrics, TextOf(index)), TextOf(index));
    return {width, text.height() + AboveOf(option, kind) + kPadding};
}

void StoryDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const auto kind = KindOf(index);
    painter->save();
    if ((option.state & QStyle::State_Selected) != 0)
        painter->fillRect(option.rect, option.palette.highlight());
    if (index.data(kNewRole).toBool())
        painter->fillRect(QRect(option.rect.left(), option.rect.top(), 3, option.rect.height()),
                          option.palette.highlight());
    const auto font = FontOf(option, kind);
    painter->setFont(font);
    painter->setPen(ColorOf(option, kind));
    const int indent = IndentOf(option, kind);
    const auto text =
        option.rect.adjusted(indent, AboveOf(option, kind), -option.fontMetrics.averageCharWidth() / 2, 0);
    painter->drawText(text, WrapIn(text.width(), QFontMetrics(font), TextOf(index)), TextOf(index));
    const bool has_sign = kind == StoryKind::Gain || kind == StoryKind::Loss;
    const int size = has_sign ? option.fontMetrics.ascent() * 2 / 3 : option.fontMetrics.ascent();
    const int line = option.fontMetrics.height();
    const int center = text.left() - option.fontMetrics.ascent();
    PaintMark(*painter, QRectF(center - size / 2.0, text.top() + (line - size) / 2.0, size, size), kind,
              index.data(kMarkRole));
    if ((option.state & QStyle::State_HasFocus) != 0) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter);
    }
    painter->restore();
}

StoryList::StoryList(const QString& objectName, const QString& accessibleName) : CopyList(objectName, accessibleName) {
    setItemDelegate(new StoryDelegate(this));
    // Also where a short history leaves room above it.
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
}

void StoryList::updateGeometries() {
    CopyList::updateGeometries();
    const int room = height() - 2 * frameWidth();
    const int free = count() == 0 ? 0 : std::max(room - contentsSize().height(), 0);
    if (free != viewportMargins().top())
        setViewportMargins(0, free, 0, 0);
}

void StoryList::Tell(const CharacterRecord& character, const RaceRecord& race) {
    const auto lines = character.History.lines();
    int kept = 0;  // lines that stood before
    while (kept < count() && kept < static_cast<int>(lines.size()) &&
           item(kept)->text() == ToQt(lines[static_cast<std::size_t>(kept)]))
        ++kept;
    const bool changed = kept < count() || kept < static_cast<int>(lines.size());
    SetLines(lines);
    const auto story = StoryOf(character, race);
    for (int row = 0; row < count(); ++row) {
        ShowAs(*item(row), story.at(static_cast<std::size_t>(row)));
        if (changed)
            SetData(*item(row), StoryDelegate::kNewRole, kept > 0 && row >= kept);
    }
}

void StoryList::ShowAs(QListWidgetItem& line, const StoryLine& told) {
    SetData(line, StoryDelegate::kKindRole, static_cast<int>(told.kind));
    SetData(line, StoryDelegate::kMarkRole, told.mark ? QVariant(static_cast<int>(*told.mark)) : QVariant());
    SetData(line, StoryDelegate::kHeadingRole, ToQt(told.heading));
    SetData(line, Qt::AccessibleTextRole, told.heading.empty() ? QVariant() : QVariant(ToQt(told.heading)));
}

}  // namespace korvane::ui
