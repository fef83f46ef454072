#include "ui/odds_panel.h"

#include <QAccessible>
#include <QAction>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMessageBox>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdint>
#include <utility>

#include "ui/looks.h"
#include "ui/qt_text.h"

namespace korvane::ui {

namespace {

constexpr std::uint64_t kLastLives = 2000;  // no surer figures come

}  // namespace

void OddsTree::Show(const play::OddsTable& table) {
    const int at = indexOfTopLevelItem(currentItem());
    setColumnCount(static_cast<int>(table.columns.size()) + 1);
    QStringList heads = {tr("Answer")};
    for (const auto& column : table.columns)
        heads << ToQt(column);
    setHeaderLabels(heads);
    for (std::size_t i = 0; i < table.meanings.size(); ++i)
        headerItem()->setToolTip(static_cast<int>(i) + 1, ToQt(table.meanings[i]));
    clear();
    for (const auto& row : table.rows) {
        auto* const item = new QTreeWidgetItem(this);
        item->setText(0, ToQt(row.caption));
        item->setData(0, Qt::AccessibleTextRole, ToQt(row.sentence));
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            item->setText(static_cast<int>(i) + 1, ToQt(row.cells[i]));
            item->setTextAlignment(static_cast<int>(i) + 1, Qt::AlignRight | Qt::AlignVCenter);
        }
    }
    if (at >= 0 && at < topLevelItemCount())
        setCurrentItem(topLevelItem(at));
    for (int i = 0; i < columnCount(); ++i)
        resizeColumnToContents(i);
    doItemsLayout();  // at once: a screen reader may ask for the rows before they are painted
}

int OddsTree::WholeWidth() const {
    const int bar =
        verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOn ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    return header()->length() + 2 * frameWidth() + 2 * fontMetrics().averageCharWidth() + bar;
}

void OddsTree::TakeRows(int rows, int width) {
    constexpr int kMost = 8;
    const int row =
        std::max(topLevelItemCount() > 0 ? visualItemRect(topLevelItem(0)).height() : 0, fontMetrics().height() + 2);
    const bool is_wide = WholeWidth() > width;
    const int bar = is_wide ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 2 : 0;
    // Two bars that need each other's room would stay.
    setHorizontalScrollBarPolicy(is_wide ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(rows > kMost ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setFixedHeight(header()->sizeHint().height() + row * std::clamp(rows, 1, kMost) + 2 * frameWidth() + 2 + bar);
}

void OddsTree::keyPressEvent(QKeyEvent* event) {
    const bool answers = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (answers)
        event->accept();  // no answer is meant by it
    else if (!event->text().isEmpty() && event->text().front().isLetterOrNumber())
        event->ignore();
    else
        QTreeWidget::keyPressEvent(event);
}

OddsPanel::OddsPanel(QWidget* parent) : QWidget(parent) {
    setObjectName("odds");
    setAccessibleName(tr("Odds"));
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    judgements_.setObjectName("judgements");
    note_.setObjectName("oddsNote");
    for (auto* const label : {&judgements_, &note_}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    Recolour(note_, [](QPalette& palette) { palette.setColor(QPalette::WindowText, Dimmed(palette)); });
    table_.setObjectName("oddsTable");
    table_.setAccessibleName(tr("Odds of each answer"));
    table_.setRootIsDecorated(false);
    table_.setUniformRowHeights(true);
    table_.setAlternatingRowColors(true);
    table_.setSelectionMode(QAbstractItemView::SingleSelection);
    table_.setFocusPolicy(Qt::TabFocus);
    table_.header()->setStretchLastSection(false);
    // Room for what most questions have to say, so that nothing moves when it comes.
    constexpr int kUsualLines = 3;
    constexpr int kLow = 45;  // lines on a screen that has no room to spare
    if (screen()->availableGeometry().height() > kLow * fontMetrics().lineSpacing())
        judgements_.setMinimumHeight(kUsualLines * fontMetrics().lineSpacing());
    judgements_.setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    column->addWidget(&judgements_);
    column->addWidget(&table_);
    column->addWidget(&note_);
    column->addStretch();
}

QSize OddsPanel::sizeHint() const {
    constexpr int kCharacters = 96;  // what most tables need
    const int width = std::min(fontMetrics().averageCharWidth() * kCharacters, most_);
    return {width, std::max(layout()->totalHeightForWidth(width), layout()->totalMinimumSize().height())};
}

void OddsPanel::Await(int answers) {
    told_ = false;
    judgements_.clear();
    table_.clear();
    table_.setColumnCount(1);
    table_.setHeaderLabels({tr("Answer")});
    table_.TakeRows(answers, most_);
    table_.show();
    note_.setText(tr("Living on from each answer..."));
}

void OddsPanel::Show(const play::OddsTable& table) {
    QStringList lines;
    for (const auto& judgement : table.judgements)
        lines << ToQt(judgement);
    judgements_.setText(lines.join(QLatin1Char('\n')));
    table_.setVisible(!table.columns.empty());
    table_.Show(table);
    table_.TakeRows(static_cast<int>(table.rows.size()), sizeHint().width());
    note_.setText(ToQt(table.note));
    const bool last = table.lives >= kLastLives;
    setAccessibleDescription(lines.join(QLatin1Char(' ')) + QLatin1Char(' ') + note_.text());
    if (std::exchange(told_, true) && !last)
        return;
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void OddsPanel::Say(const QString& text) {
    judgements_.clear();
    table_.hide();
    note_.setText(text);
}

OddsButton::OddsButton(QDialog& dialog) : QToolButton(&dialog), dialog_(dialog) {
    setObjectName("oddsButton");
    setText(tr("Odds"));
    setAccessibleName(tr("Odds"));
    setToolTip(tr("What follows from each answer (Ctrl+D)"));
    // The button's own shortcut would act a moment later.
    auto* const key = new QAction(this);
    key->setShortcut(Qt::CTRL | Qt::Key_D);
    dialog_.addAction(key);
    connect(key, &QAction::triggered, this, [this] { click(); });
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setEnabled(false);
    connect(this, &QToolButton::clicked, this, [this](bool open) {
        Fold(open);
        if (folded)
            folded(open);
    });
}

OddsPanel& OddsButton::panel() {
    if (panel_ == nullptr)
        MakePanel();
    return *panel_;
}

void OddsButton::MakePanel() {
    panel_ = new OddsPanel(&dialog_);
    panel_->hide();
    const int screen = dialog_.screen()->availableGeometry().width();
    // The toolkit makes a message box no wider than 1000, and leaves 480 of the screen beside it.
    constexpr int kMargins = 60;
    const bool is_message = qobject_cast<QMessageBox*>(&dialog_) != nullptr;
    panel_->SetMostWidth(is_message ? std::clamp(screen - 480, 360, 1000) - kMargins : screen * 9 / 10 - kMargins);
    if (fit)
        return;
    if (auto* const grid = qobject_cast<QGridLayout*>(dialog_.layout()))
        grid->addWidget(panel_, grid->rowCount(), 0, 1, grid->columnCount());
    else
        dialog_.layout()->addWidget(panel_);
}

void OddsButton::Withdraw() {
    Fold(false);
    setEnabled(false);
    folded = {};
}

void OddsButton::Fold(bool open) {
    // What has the focus in a panel that folds would hand it to an answer.
    if (!open && panel_ != nullptr && panel_->isAncestorOf(dialog_.focusWidget()))
        setFocus();
    setChecked(open);
    if (open)
        panel();
    if (panel_ != nullptr)
        panel_->setVisible(open);
    Fit();
}

void OddsButton::Change(const std::function<void(OddsPanel& panel)>& change) {
    change(panel());
    Fit();
}

// The dialog grows by what the panel takes, as far as the screen lets it, and shrinks by as much.
void OddsButton::Fit() {
    if (panel_ == nullptr)
        return;
    if (fit)
        return fit();
    if (auto* const box = qobject_cast<QMessageBox*>(&dialog_)) {
        panel_->setFixedSize(IsOpen() ? panel_->sizeHint() : QSize(0, 0));
        box->setText(box->text());  // has it take its size anew
        return;
    }
    const auto screen = dialog_.screen()->availableGeometry();
    const auto hint = panel_->sizeHint();
    const auto margins = dialog_.layout()->contentsMargins();
    const auto before = dialog_.size() - room_;
    room_ = IsOpen() ? QSize(std::max(0, hint.width() + margins.left() + margins.right() - before.width()),
                             hint.height() + dialog_.layout()->spacing())
                     : QSize(0, 0);
    room_ = (before + room_).boundedTo(screen.size() * 19 / 20) - before;
    auto place = QRect(dialog_.geometry().topLeft(), before + room_);
    place.moveRight(std::min(place.right(), screen.right()));
    place.moveBottom(std::min(place.bottom(), screen.bottom()));
    if (dialog_.isVisible())
        dialog_.setGeometry(place);
    else
        dialog_.resize(place.size());
}

}  // namespace korvane::ui
