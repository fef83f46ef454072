#include "ui/kvn_tables.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <algorithm>

namespace korvane::ui {

KVNTables::KVNTables(QWidget* parent)
    : NeededDialog(parent), back_(*this), heldLabel_(tr("Currently Held")), held_("held", tr("Currently Held")) {
    setObjectName("KVNTables");
    instruction_.setObjectName("instruction");
    instruction_.setTextFormat(Qt::PlainText);
    heldLabel_.setBuddy(&held_);
    auto* const grid = new QGridLayout(this);
    for (int number = 1; number <= kColumns; ++number) {
        auto& column = columns_.at(static_cast<std::size_t>(number - 1));
        column = MakeColumn(number);
        grid->addWidget(column.button, 0, number - 1);
        grid->addWidget(column.rows, 1, number - 1);
        grid->setColumnStretch(number - 1, 1);
    }
    grid->addWidget(&instruction_, 2, 0, 1, kColumns, Qt::AlignHCenter);
    grid->addWidget(&back_, 2, 0, Qt::AlignLeft);
    grid->addWidget(&heldLabel_, 3, 0, 1, kColumns);
    grid->addWidget(&held_, 4, 0, 1, kColumns);
    grid->setRowStretch(1, 2);
    grid->setRowStretch(4, 1);
    // From one button to the next, and then through the lists.
    for (std::size_t i = 1; i < columns_.size(); ++i)
        setTabOrder(columns_.at(i - 1).button, columns_.at(i).button);
    setTabOrder(columns_.back().button, columns_.front().rows);
    for (std::size_t i = 1; i < columns_.size(); ++i)
        setTabOrder(columns_.at(i - 1).rows, columns_.at(i).rows);
    setTabOrder(columns_.back().rows, &held_);
    setTabOrder(&held_, &back_);
    resize(fontMetrics().averageCharWidth() * 120, fontMetrics().lineSpacing() * 26);
}

KVNTables::Column KVNTables::MakeColumn(int number) {
    auto* const button = new QPushButton(this);
    button->setObjectName(QString("table%1").arg(number));
    button->setToolTip(tr("Key %1").arg(number));
    connect(button, &QPushButton::clicked, this, [this, number] {
        picked_ = number;
        accept();
    });
    auto* const rows = new CopyList(QString("rows%1").arg(number), {}, this);
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
