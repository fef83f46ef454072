#include "ui/recent_lines.h"

#include <QEvent>
#include <QGridLayout>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "ui/looks.h"
#include "ui/qt_text.h"

namespace korvane::ui {

RecentLines::RecentLines(QWidget* parent) : QWidget(parent) {
    setObjectName("recentLines");
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(2);
    for (auto& label : before_)
        column->addWidget(&label);
    newest_.setObjectName("newest");
    Recolour(*this, [](QPalette& palette) { palette.setColor(QPalette::WindowText, Dimmed(palette)); });
    newest_.setTextFormat(Qt::PlainText);
    newest_.setWordWrap(true);
    column->addWidget(&newest_);
}

void RecentLines::Show(std::span<const std::string> history) {
    const auto shown = history.last(std::min(history.size(), kMost));
    newest_.setText(shown.empty() ? QString() : ToQt(shown.back()));
    for (std::size_t i = 0; i < before_.size(); ++i) {
        auto& label = before_.at(before_.size() - 1 - i);
        const bool there = i + 1 < shown.size();
        label.Say(there ? ToQt(shown[shown.size() - 2 - i]) : QString());
        label.setVisible(there);
    }
    setVisible(!shown.empty());
}

QString RecentLines::text() const {
    QStringList lines;
    for (const auto& label : before_)
        if (!label.text().isEmpty())
            lines << label.text();
    return (lines << newest_.text()).join(QLatin1Char('\n'));
}

void AddRecentLines(QMessageBox& box, std::span<const std::string> history) {
    auto* const grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid == nullptr || history.empty())
        return;
    struct Cell {
        QLayoutItem* item;
        int row, column, rows, columns;
    };
    std::vector<Cell> cells;
    const int columns = grid->columnCount();
    while (grid->count() > 0) {
        Cell cell{};
        grid->getItemPosition(0, &cell.row, &cell.column, &cell.rows, &cell.columns);
        cell.item = grid->takeAt(0);
        cells.push_back(cell);
    }
    auto* const recent = new RecentLines(&box);
    recent->Show(history);
    // The older ones are elided, so they ask for no width.
    recent->setMinimumWidth(box.fontMetrics().averageCharWidth() * 50);
    grid->addWidget(recent, 0, 0, 1, columns);
    grid->setColumnStretch(columns - 1, 1);  // that of the texts
    for (const auto& cell : cells)
        grid->addItem(cell.item, cell.row + 1, cell.column, cell.rows, cell.columns, cell.item->alignment());
    box.setAccessibleDescription(recent->text());
}

// Without a parent: as a window of the dialog's it would count as active together with it.
RecentLinesAbove::RecentLinesAbove(QWidget& dialog)
    : dialog_(dialog),
      window_(nullptr, Qt::ToolTip | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus),
      lines_(&window_) {
    window_.setObjectName("recentWindow");
    window_.setAttribute(Qt::WA_ShowWithoutActivating);
    auto* const frame = new QVBoxLayout(&window_);
    frame->addWidget(&lines_);
    dialog_.installEventFilter(this);
}

void RecentLinesAbove::Show(std::span<const std::string> history) {
    lines_.Show(history);
    dialog_.setAccessibleDescription(lines_.text());
}

// Whether there is room for the lines.
bool RecentLinesAbove::Place() {
    const auto room = dialog_.screen()->availableGeometry();
    const int bar = dialog_.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const auto taken = dialog_.geometry().adjusted(-bar / 4, -bar, bar / 4, bar / 4);  // with its frame
    const int width = std::min(window_.fontMetrics().averageCharWidth() * 60, room.width());
    const int left = std::clamp(taken.center().x() - width / 2, room.left(), room.right() - width + 1);
    const int height = window_.heightForWidth(width);
    const int beside = window_.fontMetrics().averageCharWidth() * 30;
    const int tall = window_.heightForWidth(beside);
    const std::array places = {
        QRect(left, taken.top() - height, width, height), QRect(left, taken.bottom(), width, height),
        QRect(taken.left() - beside, taken.top(), beside, tall), QRect(taken.right(), taken.top(), beside, tall)};
    const auto* const place = std::ranges::find_if(places, [&](const QRect& each) { return room.contains(each); });
    if (place == places.end())
        return false;
    window_.setGeometry(*place);
    return true;
}

bool RecentLinesAbove::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
        case QEvent::Show:
        case QEvent::WindowActivate:
        case QEvent::Move:
            window_.setVisible(dialog_.isVisible() && !lines_.empty() && Place());
            break;
        case QEvent::Hide:
        case QEvent::WindowDeactivate:  // it would stand above whatever comes
            window_.hide();
            break;
        default:
            break;
    }
    return false;
}

}  // namespace korvane::ui
