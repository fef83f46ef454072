#include "ui/slist1.h"

#include <QHBoxLayout>
#include <QInputDialog>
#include <QScreen>
#include <QShowEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "character/player_texts.h"
#include "ui/dialog.h"
#include "ui/message_boxes.h"
#include "ui/qt_text.h"

namespace korvane::ui {

namespace {

void SetUpLimit(QLineEdit& field, const QString& name) {
    field.setObjectName(name.toLower());
    field.setAccessibleName(name);
    field.setReadOnly(true);
    field.setFocusPolicy(Qt::NoFocus);
    field.setFrame(false);  // nothing is to be written here
    auto palette = field.palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    field.setPalette(palette);
    field.setMaximumWidth(field.fontMetrics().averageCharWidth() * 4);
}

}  // namespace

void MarkList::focusInEvent(QFocusEvent* event) {
    const bool had_current = currentIndex().isValid();
    QListWidget::focusInEvent(event);
    if (!had_current)
        selectionModel()->clearCurrentIndex();
}

SLIST1::SLIST1(QWidget* parent, InputGuard& guard)
    : QDialog(parent),
      guard_(guard),
      chooseOne_(tr("Choose 1")),
      ok_(tr("OK")),
      cancel_(tr("Cancel")),
      selectAll_(tr("Select &All")),
      clear_(tr("C&lear")),
      find_(tr("&Find...")),
      back_(*this),
      odds_(*this) {
    setObjectName("SLIST1");
    setModal(true);
    prompt_.setObjectName("prompt");
    prompt_.setWordWrap(true);
    prompt_.setTextFormat(Qt::PlainText);
    count_.setObjectName("count");
    chooseOne_.setObjectName("chooseOne");
    list_.setObjectName("items");
    SetUpLimit(minimum_, tr("Minimum"));
    SetUpLimit(maximum_, tr("Maximum"));
    LayOut();
    ConnectAll();
    resize(fontMetrics().averageCharWidth() * 64, fontMetrics().lineSpacing() * 26);
}

void SLIST1::LayOut() {
    auto* const column = new QVBoxLayout(this);
    column->addWidget(&recent_);
    column->addWidget(&prompt_);
    auto* const limits = new QHBoxLayout(&limits_);
    limits->setContentsMargins({});
    limits->addWidget(new QLabel(tr("Minimum")));
    limits->addWidget(&minimum_);
    limits->addWidget(new QLabel(tr("Maximum")));
    limits->addWidget(&maximum_);
    auto* const counts = new QHBoxLayout;
    counts->addWidget(&limits_);
    counts->addWidget(&chooseOne_);
    counts->addStretch();
    counts->addWidget(&count_);
    column->addLayout(counts);
    column->addWidget(&list_, 1);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(&back_);
    buttons->addWidget(&odds_);
    for (auto* const button : {&ok_, &cancel_, &selectAll_, &clear_, &find_})
        buttons->addWidget(button);
    column->addLayout(buttons);
    ok_.setObjectName("ok");
    cancel_.setObjectName("cancel");
    selectAll_.setObjectName("selectAll");
    clear_.setObjectName("clear");
    find_.setObjectName("find");
    ok_.setDefault(true);
}

void SLIST1::ConnectAll() {
    connect(&ok_, &QPushButton::clicked, this, &SLIST1::Check);
    connect(&cancel_, &QPushButton::clicked, this, &SLIST1::reject);
    connect(&selectAll_, &QPushButton::clicked, this, [this] { MarkAllContaining({}); });
    connect(&clear_, &QPushButton::clicked, this, &SLIST1::Clear);
    connect(&find_, &QPushButton::clicked, this, &SLIST1::Find);
    connect(&list_, &QListWidget::itemSelectionChanged, this, &SLIST1::ShowCount);
    connect(&list_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        // The first of the two clicks may have unmarked the item that is meant.
        item->setSelected(true);
        Check();
    });
}

void SLIST1::SetQuestion(const ListQuestion& question) {
    const auto prompt = ToQt(question.prompt);
    prompt_.setText(prompt);
    list_.setAccessibleName(prompt);
    most_ = std::max(question.maximum, 1);
    least_ = std::max(question.minimum, 1);
    maximum_.setText(QString::number(most_));
    minimum_.setText(QString::number(least_));
    const bool one = most_ == 1 && least_ == 1;
    limits_.setVisible(!one);
    chooseOne_.setVisible(one);
    list_.setSelectionMode(one ? QAbstractItemView::ExtendedSelection : QAbstractItemView::MultiSelection);
    list_.clear();
    for (const auto item : question.items)
        list_.addItem(ToQt(item));
    Clear();
    ShowCount();
    list_.setFocus();
}

std::vector<int> SLIST1::Marked() const {
    std::vector<int> marked;
    for (int row = 0; row < list_.count(); ++row)
        if (list_.item(row)->isSelected())
            marked.push_back(row + 1);
    return marked;
}

void SLIST1::Check() {
    if (!isVisible())  // a button's shortcut clicks a moment later, when the list may have gone
        return;
    const auto count = list_.selectedItems().size();
    if (count == 0)
        ShowMessage(ToQt(kNoItems));
    else if (count > most_)
        ShowMessage(ToQt(kTooManyItems) + QString::number(most_));
    else if (count < least_)
        ShowMessage(ToQt(kTooFewItems) + QString::number(least_));
    else
        accept();
}

void SLIST1::reject() {
    Clear();
    QDialog::reject();
}

void SLIST1::Clear() {
    list_.selectionModel()->clear();
}

void SLIST1::Find() {
    if (!isVisible())
        return;
    QInputDialog input(this);
    input.setObjectName("findInput");
    input.setWindowTitle(windowTitle());
    input.setLabelText("Select all entries containing this string");
    if (guard_.Run(input) == QDialog::Accepted && !input.textValue().isEmpty())
        MarkAllContaining(input.textValue());
}

// Marked items stay marked. The last one becomes current, as by a click.
void SLIST1::MarkAllContaining(const QString& text) {
    for (int row = 0; row < list_.count(); ++row) {
        if (!list_.item(row)->text().contains(text, Qt::CaseInsensitive))
            continue;
        list_.setCurrentRow(row, QItemSelectionModel::NoUpdate);
        list_.item(row)->setSelected(true);
    }
}

void SLIST1::ShowCount() {
    count_.setText(tr("%1 selected").arg(list_.selectedItems().size()));
}

void SLIST1::ShowMessage(const QString& text) {
    ui::ShowMessage(guard_, this, windowTitle(), text, Icon::None);
}

void SLIST1::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous())  // it was only minimized
        return;
    LimitSize();
}

void SLIST1::LimitSize() {
    const auto screen_size = this->screen()->geometry().size();
    resize(std::min(width(), screen_size.width() / 2), std::min(height(), screen_size.height() * 3 / 4));
    CenterOnScreen(*this);
}

}  // namespace korvane::ui
