#include "ui/kvn_muster.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QShowEvent>
#include <QVBoxLayout>
#include <vector>

#include "base/text.h"
#include "character/player_texts.h"
#include "output/question_texts.h"
#include "ui/dialog.h"
#include "ui/looks.h"

namespace korvane::ui {

namespace {

constexpr std::array kNames = {"cash", "material", "threeCash", "done"};

}  // namespace

KVNMuster::KVNMuster(QWidget* parent)
    : QDialog(parent),
      back_(*this),
      odds_(*this),
      gambler_(ToQt(kGamblerQuestion)),
      results_("Results"),
      cash_("cashResults", tr("Results: cash")),
      benefits_("materialResults", tr("Results: material benefits")),
      history_("historyResults", tr("Results: history")) {
    setObjectName("KVNMuster");
    setModal(true);
    rolls_.setObjectName("rolls");
    rolls_.setTextFormat(Qt::PlainText);
    bonuses_.setObjectName("bonuses");
    gambler_.setObjectName("gambler");
    KeepReadable(gambler_);
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        buttons_.at(i).setText(ToCaption(kMusterCaptions.at(i)));
        buttons_.at(i).setObjectName(kNames.at(i));
        KeepReadable(buttons_.at(i));
        buttons_.at(i).SetKey(QString::number(i + 1));
        connect(&buttons_.at(i), &QPushButton::clicked, this, [this, i] { Press(static_cast<MusterButton>(i)); });
    }
    table_.setObjectName("table");
    table_.setAccessibleName(tr("The career's table, by the roll"));
    table_.setHeaderLabels({tr("1D"), tr("Cash"), tr("Benefit")});
    table_.setRootIsDecorated(false);
    table_.setAlternatingRowColors(true);
    table_.setSelectionMode(QAbstractItemView::NoSelection);
    table_.header()->setSectionsMovable(false);
    table_.header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    table_.header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    constexpr int kLines = 10;  // seven rows and the head
    table_.setMinimumHeight(fontMetrics().lineSpacing() * kLines);
    modifiers_.setObjectName("modifiers");
    modifiers_.setWordWrap(true);
    LayOut();
}

void KVNMuster::LayOut() {
    auto* const column = new QVBoxLayout(this);
    column->addWidget(&rolls_);
    column->addWidget(&bonuses_);
    column->addWidget(&gambler_);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(&back_);
    buttons->addWidget(&odds_);
    for (auto& button : buttons_)
        buttons->addWidget(&button);
    column->addLayout(buttons);
    forfeit_.setObjectName("forfeit");
    forfeit_.setForegroundRole(QPalette::Text);
    column->addWidget(&forfeit_);
    column->addWidget(&results_);
    auto* const lists = new QGridLayout;
    const auto add = [&](int place, const QString& heading, QWidget& list, int stretch) {
        auto* const label = new QLabel(heading);
        label->setBuddy(&list);
        lists->addWidget(label, 0, place);
        lists->addWidget(&list, 1, place);
        lists->setColumnStretch(place, stretch);
    };
    add(0, tr("The career's table"), table_, 5);
    add(1, tr("Cash"), cash_, 2);
    add(2, tr("Benefits"), benefits_, 3);
    add(3, tr("History"), history_, 4);
    column->addLayout(lists, 1);
    column->insertWidget(column->indexOf(&results_), &modifiers_);
    resize(fontMetrics().averageCharWidth() * 130, fontMetrics().lineSpacing() * 24);
}

void KVNMuster::SetQuestion(const MusterQuestion& question) {
    ShowState(question.career, question.rolls, question.bonuses, question.cash, question.benefits);
    gambler_.setEnabled(question.gamblerEnabled);
    if (!question.gamblerEnabled)
        gambler_.setChecked(false);
    for (std::size_t i = 0; i < buttons_.size(); ++i)
        buttons_.at(i).setEnabled(question.Enabled(static_cast<MusterButton>(i)));
    if (!buttons_.front().isEnabled() && !buttons_[1].isEnabled())
        buttons_.back().setFocus();
}

void KVNMuster::ShowState(std::string_view career, int rolls, int bonuses, std::span<const std::string> cash,
                          std::span<const std::string> benefits) {
    rolls_.setText(ToQt(MusterTitle(career, rolls)));
    bonuses_.setText(ToQt(Concat(bonuses, " times you can add +1")));
    cash_.SetLines(cash);
    benefits_.SetLines(benefits);
    cash_.scrollToBottom();
    benefits_.scrollToBottom();
}

void KVNMuster::SetTable(const std::vector<BenefitRow>& rows, const QString& modifiers) {
    modifiers_.setText(modifiers);
    while (table_.topLevelItemCount() < static_cast<int>(rows.size()))
        table_.addTopLevelItem(new QTreeWidgetItem);
    int number = 0;
    for (const auto& row : rows) {
        auto& item = *table_.topLevelItem(number++);
        item.setText(0, QString::number(number));
        item.setText(1, row.cash);
        item.setText(2, row.benefit);
        item.setToolTip(2, row.benefit.toHtmlEscaped());
    }
    // At once: a screen reader may ask for the rows before they are painted.
    table_.doItemsLayout();
}

void KVNMuster::SetForfeit(const QString& forfeit) {
    forfeit_.setText(forfeit);
    forfeit_.setVisible(!forfeit.isEmpty());
}

void KVNMuster::SetHistory(std::span<const std::string> lines) {
    history_.SetLines(lines);
    history_.scrollToBottom();
}

void KVNMuster::Press(MusterButton button) {
    if (pressed)
        pressed({button, gambler_.isChecked()});
}

void KVNMuster::reject() {
    Press(MusterButton::Done);
}

void KVNMuster::done(int result) {
    if (left)
        left(result);
}

void KVNMuster::keyPressEvent(QKeyEvent* event) {
    const int digit = DigitOf(*event);
    if (digit >= 1 && digit <= static_cast<int>(buttons_.size()))
        buttons_.at(static_cast<std::size_t>(digit - 1)).click();
    else
        QDialog::keyPressEvent(event);
}

void KVNMuster::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous())  // it was only minimized
        return;
    gambler_.setChecked(false);
    (buttons_.front().isEnabled() ? buttons_.front() : buttons_.back()).setFocus();
    CenterOnScreen(*this);
}

}  // namespace korvane::ui
