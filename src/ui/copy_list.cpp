#include "ui/copy_list.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

namespace korvane::ui {

CopyList::CopyList(const QString& objectName, const QString& accessibleName, QWidget* parent) : QListWidget(parent) {
    setObjectName(objectName);
    setAccessibleName(accessibleName);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setWordWrap(true);
    setTextElideMode(Qt::ElideNone);
    setResizeMode(QListView::Adjust);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    auto* const copy = addAction(tr("Copy"));
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, &CopyList::Copy);
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

QStringList CopyList::Lines() const {
    QStringList lines;
    for (int row = 0; row < count(); ++row)
        lines << item(row)->text();
    return lines;
}

void CopyList::FollowNewest() {
    const auto* const bar = verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this, [this, bar](int value) { atEnd_ = value == bar->maximum(); });
    // Also when a resized window wraps the lines anew.
    connect(bar, &QScrollBar::rangeChanged, this, [this] {
        if (atEnd_)
            scrollToBottom();
    });
}

void CopyList::ShowAllLines() {
    setWordWrap(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFixedHeight(std::max(count(), 1) * sizeHintForRow(0) + 2 * frameWidth());
}

void CopyList::Copy() const {
    QStringList lines;
    for (int row = 0; row < count(); ++row)
        if (item(row)->isSelected())
            lines << item(row)->text();
    QGuiApplication::clipboard()->setText((lines.isEmpty() ? Lines() : lines).join(QLatin1Char('\n')));
}

QSize CopyList::sizeHint() const {
    // The standard hint takes a wide list for granted; layouts give what there is.
    const auto unit = fontMetrics().averageCharWidth();
    return {unit * 22, fontMetrics().lineSpacing() * 6};
}

void CopyList::keyPressEvent(QKeyEvent* event) {
    if (event->key() >= Qt::Key_0 && event->key() <= Qt::Key_9)
        event->ignore();
    else
        QListWidget::keyPressEvent(event);
}

void CopyList::SetLine(int row, const QString& text) {
    if (row >= count())
        addItem(text);
    else if (item(row)->text() != text)
        item(row)->setText(text);
}

void CopyList::Truncate(int count) {
    if (count == 0)
        clear();
    while (this->count() > count)
        model()->removeRow(this->count() - 1);
}

}  // namespace korvane::ui
