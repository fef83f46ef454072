#include "ui/kvn_tables.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QStyledItemDelegate>
#include <algorithm>

#include "ui/looks.h"

namespace korvane::ui {

namespace {

// Rows with the numbers of the die before them.
class NumberedRows : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const auto row = index.data().toString();
        const auto room = QRect(0, 0, RowWidth(option) - RoomOf(option) - 2 * Margin(), 1000);
        const auto text = option.fontMetrics.boundingRect(room, WrapIn(room.width(), option.fontMetrics, row), row);
        return {RowWidth(option), std::max(text.height(), option.fontMetrics.height()) + 2 * Margin()};
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const bool marked = (option.state & QStyle::State_Selected) != 0;
        const auto group = (option.state & QStyle::State_Enabled) != 0 ? QPalette::Active : QPalette::Disabled;
        if (marked)
            painter->fillRect(option.rect, option.palette.brush(group, QPalette::Highlight));
        else if (index.row() % 2 == 1)
            painter->fillRect(option.rect, option.palette.brush(group, QPalette::AlternateBase));
        const auto text = option.rect.adjusted(Margin(), Margin(), -Margin(), 0);
        painter->setPen(marked ? option.palette.color(group, QPalette::HighlightedText)
                               : Dimmed(option.palette, QPalette::AlternateBase));
        painter->drawText(text, Qt::AlignLeft | Qt::AlignTop, QString::number(index.row() + 1));
        if (!marked)
            painter->setPen(option.palette.color(group, QPalette::Text));
        const auto row = index.data().toString();
        const auto beside = text.adjusted(RoomOf(option), 0, 0, 0);
        painter->drawText(beside, WrapIn(beside.width(), option.fontMetrics, row), row);
    }

  private:
    static int Margin() { return 3; }
    static int RoomOf(const QStyleOptionViewItem& option) { return option.fontMetrics.averageCharWidth() * 2; }
};

}  // namespace

KVNTables::KVNTables(QWidget* parent)
    : NeededDialog(parent),
      back_(*this),
      odds_(*this),
      heldLabel_(tr("Currently Held")),
      held_("held", tr("Currently Held")) {
    setObjectName("KVNTables");
    recent_.setParent(this);  // first, as it is read
    instruction_.setObjectName("instruction");
    instruction_.setTextFormat(Qt::PlainText);
    heldLabel_.setBuddy(&held_);
    auto* const grid = new QGridLayout(this);
    for (int number = 1; number <= kColumns; ++number) {
        auto& column = columns_.at(static_cast<std::size_t>(number - 1));
        column = MakeColumn(number);
        grid->addWidget(column.button, 1, number - 1);
        grid->addWidget(column.rows, 2, number - 1);
    }
    grid->addWidget(&recent_, 0, 0, 1, kColumns);
    grid->addWidget(&instruction_, 3, 0, 1, kColumns, Qt::AlignHCenter);
    auto* const ways = new QHBoxLayout;
    ways->addWidget(&back_);
    ways->addWidget(&odds_);
    ways->addStretch();
    grid->addLayout(ways, 3, 0);
    grid->addWidget(&heldLabel_, 4, 0, 1, kColumns);
    grid->addWidget(&held_, 5, 0, 1, kColumns);
    grid->setRowStretch(2, 4);
    grid->setRowStretch(5, 1);
    // From one button to the next, and then through the lists.
    for (std::size_t i = 1; i < columns_.size(); ++i)
        setTabOrder(columns_.at(i - 1).button, columns_.at(i).button);
    setTabOrder(columns_.back().button, columns_.front().rows);
    for (std::size_t i = 1; i < columns_.size(); ++i)
        setTabOrder(columns_.at(i - 1).rows, columns_.at(i).rows);
    setTabOrder(columns_.back().rows, &held_);
    setTabOrder(&held_, &back_);
    setTabOrder(&back_, &odds_);
    const auto room = screen()->availableGeometry().size() * 9 / 10;
    resize(QSize(fontMetrics().averageCharWidth() * 126, fontMetrics().lineSpacing() * 33).boundedTo(room));
}

KVNTables::Column KVNTables::MakeColumn(int number) {
    auto* const button = new KeyButton(this);
    button->setObjectName(QString("table%1").arg(number));
    button->SetKey(QString::number(number));
    KeepReadable(*button);
    connect(button, &QPushButton::clicked, this, [this, number] {
        picked_ = number;
        accept();
    });
    auto* const rows = new CopyList(QString("rows%1").arg(number), {}, this);
    rows->setItemDelegate(new NumberedRows(rows));
    KeepReadable(*rows);
    return {button, rows};
}

void KVNTables::SetQuestion(const TableQuestion& question) {
    picked_ = 0;
    instruction_.setText(ToQt(question.instruction));
    for (int number = 1; number <= kColumns; ++number)
        ShowColumn(number, question.columns.at(static_cast<std::size_t>(number)));
    columns_.front().button->setFocus();
}

void KVNTables::ShowColumn(int number, const TableColumn& content) {
    const auto& column = columns_.at(static_cast<std::size_t>(number - 1));
    const auto name = content.caption.empty() ? tr("Unused table") : ToQt(content.caption);
    column.button->setText(ToCaption(content.caption));
    column.button->setEnabled(content.enabled);
    column.rows->SetLines(content.rows);
    for (int row = 0; row < column.rows->count(); ++row)
        column.rows->item(row)->setData(Qt::AccessibleTextRole,
                                        QString("%1: %2").arg(row + 1).arg(column.rows->item(row)->text()));
    // One that is never there takes no room.
    const bool there = !content.caption.empty() || !content.rows.empty();
    column.button->setVisible(there);
    column.rows->setVisible(there);
    dynamic_cast<QGridLayout&>(*layout()).setColumnStretch(number - 1, there ? 1 : 0);
    column.rows->setEnabled(content.enabled);
    column.button->setAccessibleName(name);
    column.rows->setAccessibleName(name);
}

void KVNTables::SetHeldSkills(const std::vector<std::string>& lines) {
    held_.SetLines(lines);
}

void KVNTables::keyPressEvent(QKeyEvent* event) {
    const int digit = DigitOf(*event);
    if (digit >= 1 && digit <= kColumns)
        columns_.at(static_cast<std::size_t>(digit - 1)).button->click();
    else
        NeededDialog::keyPressEvent(event);
}

}  // namespace korvane::ui
