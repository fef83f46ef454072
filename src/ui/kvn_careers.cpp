#include "ui/kvn_careers.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPainter>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "base/text.h"
#include "ui/qt_text.h"

namespace korvane::ui {

namespace {

constexpr int kValue = Qt::UserRole;      // what the column is sorted by
constexpr int kShare = Qt::UserRole + 1;  // how long the bar is, from 0 to 1

// A row that is sorted by its figures; what has none comes last.
class FigureRow : public QTreeWidgetItem {
  public:
    using QTreeWidgetItem::QTreeWidgetItem;

    bool operator<(const QTreeWidgetItem& other) const override {
        const int column = treeWidget()->sortColumn();
        if (column == 0)
            return text(0).localeAwareCompare(other.text(0)) < 0;
        return ValueIn(*this, column) < ValueIn(other, column);
    }

  private:
    static double ValueIn(const QTreeWidgetItem& item, int column) {
        const auto value = item.data(column, kValue);
        return value.isValid() ? value.toDouble() : -1e18;
    }
};

// Texts with a bar beneath.
class Bars : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        const auto share = index.data(kShare);
        if (!share.isValid())
            return;
        const bool marked = (option.state & QStyle::State_Selected) != 0;
        auto bar = option.rect.adjusted(2, option.rect.height() - kHeight - 1, -2, -1);
        painter->fillRect(bar, option.palette.brush(marked ? QPalette::Highlight : QPalette::AlternateBase));
        bar.setWidth(qRound(bar.width() * std::clamp(share.toDouble(), 0.0, 1.0)));
        painter->fillRect(bar, option.palette.brush(marked ? QPalette::HighlightedText : QPalette::Highlight));
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(6, kHeight + 4);
    }

  private:
    static constexpr int kHeight = 3;
};

// A row as it is heard.
QString SentenceOf(const play::CareerPlace& place) {
    QStringList figures;
    for (const auto& column : play::CareerColumns())
        figures << ToQt(column.caption) + QLatin1Char(' ') + ToQt(CellText(place.prospects, column.figure));
    const auto name = place.assignment.empty() ? place.career : Concat(place.career, ", ", place.assignment);
    return ToQt(name) + QStringLiteral(": ") + figures.join(QStringLiteral("; "));
}

// What can't be compared, and why.
QString FaultsOf(const play::CareerComparison& found) {
    QString faults;
    for (const auto& place : found.places)
        if (!place.fault.empty())
            faults += QLatin1Char('\n') + ToQt(place.fault);
    return faults;
}

}  // namespace

KVNCareers::KVNCareers(QWidget* parent, const HeldPath& rules, const play::Applicant& applicant, const QString& who)
    : QDialog(parent), choose_(tr("&Choose")), close_(tr("Close")) {
    setObjectName("KVNCareers");
    setWindowTitle(tr("Compare careers"));
    LayOut(who);
    connect(&choose_, &QPushButton::clicked, this, &KVNCareers::Choose);
    connect(&close_, &QPushButton::clicked, this, &QDialog::reject);
    connect(&table_, &QTreeWidget::currentItemChanged, this,
            [this] { choose_.setEnabled(table_.currentItem() != nullptr); });
    connect(&table_, &QTreeWidget::itemExpanded, this, &KVNCareers::FitColumns);
    connect(&sort_, &QComboBox::activated, this, &KVNCareers::SortBy);
    connect(table_.header(), &QHeaderView::sortIndicatorChanged, &sort_, &QComboBox::setCurrentIndex);
    background_.Begin(
        [this, rules, applicant](const Background::Stops& stops, const Background::Tell& tell) {
            Display nobody;
            Session session(DataFolder(rules, DataFolder::Reading::Once), {nullptr, nullptr, &nobody});
            play::CareerOdds odds(session, applicant, kTerms);
            for (const auto lives : {50U, 200U, 1000U, 2000U}) {
                odds.LiveUpTo(lives, stops);
                if (stops())
                    return;
                tell([this, found = odds.comparison()] { Show(found); });
            }
        },
        [this](const QString& why) { note_.setText(tr("The careers can't be compared: %1").arg(why)); });
}

void KVNCareers::LayOut(const QString& who) {
    heading_.setObjectName("who");
    heading_.setTextFormat(Qt::PlainText);
    heading_.setWordWrap(true);
    heading_.setText(who);
    note_.setObjectName("careersNote");
    note_.setTextFormat(Qt::PlainText);
    note_.setWordWrap(true);
    note_.setText(tr("Living in each career..."));
    table_.setObjectName("careers");
    table_.setAccessibleName(tr("Careers"));
    QStringList heads = {tr("Career")};
    for (const auto& column : play::CareerColumns())
        heads << ToQt(column.caption);
    table_.setColumnCount(static_cast<int>(heads.size()));
    table_.setHeaderLabels(heads);
    for (std::size_t i = 0; i < play::CareerColumns().size(); ++i)
        table_.headerItem()->setToolTip(static_cast<int>(i) + 1, ToQt(play::CareerColumns().at(i).meaning));
    table_.setItemDelegate(new Bars(&table_));
    table_.setUniformRowHeights(true);
    table_.setExpandsOnDoubleClick(true);
    table_.header()->setStretchLastSection(false);
    table_.setSortingEnabled(true);
    table_.sortByColumn(0, Qt::AscendingOrder);
    sort_.setObjectName("sortBy");
    sort_.setAccessibleName(tr("Sort by"));
    sort_.addItems(heads);
    auto* const sort_label = new QLabel(tr("&Sort by"));
    sort_label->setBuddy(&sort_);
    choose_.setObjectName("choose");
    choose_.setEnabled(false);
    close_.setObjectName("close");
    auto* const column = new QVBoxLayout(this);
    column->addWidget(&heading_);
    column->addWidget(&table_, 1);
    column->addWidget(&note_);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(sort_label);
    buttons->addWidget(&sort_);
    buttons->addStretch();
    buttons->addWidget(&choose_);
    buttons->addWidget(&close_);
    column->addLayout(buttons);
    choose_.setDefault(true);
    table_.setFocus();
    const auto room = screen()->availableGeometry().size() * 9 / 10;
    resize(QSize(fontMetrics().averageCharWidth() * 165, fontMetrics().lineSpacing() * 36).boundedTo(room));
}

// By figures the greatest come first.
void KVNCareers::SortBy(int column) {
    table_.sortByColumn(column, column == 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void KVNCareers::Show(const play::CareerComparison& found) {
    // Rows would change places under the hand that fills them.
    table_.setSortingEnabled(false);
    std::array<double, play::kCareerFigures> most{};
    for (const auto& place : found.places)
        for (std::size_t i = 0; i < most.size(); ++i)
            most.at(i) = std::max(most.at(i), place.prospects.figures.at(i).mean());
    QTreeWidgetItem* career = nullptr;
    const bool first = items_.empty();
    for (const auto& place : found.places) {
        auto*& item = items_[{place.career, place.assignment}];
        if (item == nullptr && place.assignment.empty())
            item = new FigureRow(&table_);
        else if (item == nullptr)
            item = new FigureRow(career);
        if (place.assignment.empty())
            career = item;
        Fill(*item, place);
        for (std::size_t i = 0; i < most.size(); ++i) {
            const auto& sample = place.prospects.figures.at(i);
            const double whole = IsChance(play::CareerColumns().at(i).figure) ? 1 : most.at(i);
            if (sample.count() > 0)
                item->setData(static_cast<int>(i) + 1, kShare, whole > 0 ? sample.mean() / whole : 0);
        }
    }
    table_.setSortingEnabled(true);
    FitColumns();
    if (first && table_.topLevelItemCount() > 0)
        table_.setCurrentItem(table_.topLevelItem(0));
    table_.doItemsLayout();  // at once: a screen reader may ask for the rows before they are painted
    const auto lives = ToQt(FormatThousands(static_cast<double>(found.lives)));
    note_.setText(
        tr("%1 lives in each assignment by a player of sense, who musters out after %2 terms of service. What "
           "comes after \"Accepted\" is of those who are accepted.")
            .arg(lives)
            .arg(kTerms) +
        FaultsOf(found));
}

void KVNCareers::FitColumns() {
    for (int i = 0; i < table_.columnCount(); ++i)
        table_.resizeColumnToContents(i);
}

void KVNCareers::Fill(QTreeWidgetItem& item, const play::CareerPlace& place) {
    item.setText(0, ToQt(place.assignment.empty() ? place.career : place.assignment));
    item.setData(0, Qt::AccessibleTextRole, SentenceOf(place));
    int column = 0;
    for (const auto& each : play::CareerColumns()) {
        ++column;
        const auto& sample = place.prospects.At(each.figure);
        item.setText(column, ToQt(CellText(place.prospects, each.figure)));
        item.setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
        if (sample.count() > 0)
            item.setData(column, kValue, sample.mean());
    }
}

void KVNCareers::Choose() {
    auto* const current = table_.currentItem();
    const auto place = std::ranges::find_if(items_, [current](const auto& each) { return each.second == current; });
    if (place == items_.end())
        return;
    chosen_ = place->first;
    accept();
}

}  // namespace korvane::ui
