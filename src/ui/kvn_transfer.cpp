#include "ui/kvn_transfer.h"

#include <QAbstractItemView>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "character/player_texts.h"
#include "ui/looks.h"
#include "ui/qt_text.h"

namespace korvane::ui {

namespace {

// Entries with a description under each name.
class DescribedItems : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static constexpr int kDescription = Qt::UserRole + 1;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const int width = RowWidth(option);
        const auto room = QRect(0, 0, std::max(width - 2 * kMargin, 100), 1000);
        const auto told = index.data(kDescription).toString();
        const int more = told.isEmpty() ? 0 : option.fontMetrics.boundingRect(room, Qt::TextWordWrap, told).height();
        return {width, option.fontMetrics.height() + more + 2 * kMargin};
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const bool marked = (option.state & QStyle::State_Selected) != 0;
        const auto& palette = option.palette;
        painter->fillRect(option.rect, palette.brush(marked ? QPalette::Highlight : QPalette::Base));
        const auto text = option.rect.adjusted(kMargin, kMargin, -kMargin, 0);
        painter->setPen(palette.color(marked ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(text, Qt::AlignLeft | Qt::AlignTop, index.data().toString());
        if (!marked)
            painter->setPen(Dimmed(palette, QPalette::Base));
        painter->drawText(text.adjusted(0, option.fontMetrics.height(), 0, 0), Qt::TextWordWrap,
                          index.data(kDescription).toString());
    }

  private:
    static constexpr int kMargin = 4;
};

}  // namespace

KVNTransfer::KVNTransfer(QWidget* parent)
    : NeededDialog(parent),
      heading_(ToQt(kTransferHeading)),
      notice_(ToQt(kTransferNotice)),
      careerLabel_("Career"),
      assignmentLabel_("Assignment"),
      back_(*this),
      odds_(*this),
      accept_("Accept"),
      endCareer_(ToQt(kEndCareer)) {
    setObjectName("KVNTransfer");
    heading_.setObjectName("heading");
    auto font = heading_.font();
    font.setBold(true);
    heading_.setFont(font);
    notice_.setObjectName("notice");
    notice_.setWordWrap(true);
    career_.setObjectName("career");
    career_.setAccessibleName(careerLabel_.text());
    career_.setPlaceholderText(tr("Select a career"));
    assignment_.setObjectName("assignment");
    assignment_.setAccessibleName(assignmentLabel_.text());
    assignment_.setPlaceholderText(tr("Select an assignment"));
    accept_.setObjectName("accept");
    endCareer_.setObjectName("endCareer");
    career_.setItemDelegate(new DescribedItems(&career_));
    career_.view()->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    description_.setObjectName("description");
    description_.setWordWrap(true);
    description_.setTextFormat(Qt::PlainText);
    connect(&career_, &QComboBox::activated, this, [this] {
        accept_.setEnabled(true);
        description_.setText(career_.currentData(DescribedItems::kDescription).toString());
        if (careerChosen)
            careerChosen(career_.currentText());
    });
    connect(&accept_, &QPushButton::clicked, this, &QDialog::accept);
    connect(&endCareer_, &QPushButton::clicked, this, [this] {
        ended_ = true;
        accept();
    });
    LayOut();
}

void KVNTransfer::LayOut() {
    careerLabel_.setBuddy(&career_);
    assignmentLabel_.setBuddy(&assignment_);
    auto* const grid = new QGridLayout(this);
    grid->addWidget(&heading_, 0, 0, 1, 2);
    grid->addWidget(&careerLabel_, 1, 0);
    grid->addWidget(&career_, 1, 1);
    grid->addWidget(&description_, 2, 1);
    grid->addWidget(&assignmentLabel_, 3, 0);
    grid->addWidget(&assignment_, 3, 1);
    cost_.setObjectName("cost");
    cost_.setWordWrap(true);
    cost_.setTextFormat(Qt::PlainText);
    grid->addWidget(&notice_, 4, 0, 1, 2);
    grid->addWidget(&cost_, 5, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(5, 1);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(&back_);
    buttons->addWidget(&odds_);
    buttons->addStretch();
    buttons->addWidget(&accept_);
    buttons->addWidget(&endCareer_);
    grid->addLayout(buttons, 6, 0, 1, 2);
    resize(fontMetrics().averageCharWidth() * 66, sizeHint().height());
}

void KVNTransfer::SetQuestion(const TransferQuestion& question) {
    ended_ = false;
    career_.clear();
    for (const auto& name : question.careers) {
        const auto told = question.descriptionOf ? ToQt(question.descriptionOf(name)) : QString();
        career_.addItem(ToQt(name));
        career_.setItemData(career_.count() - 1, told, DescribedItems::kDescription);
        career_.setItemData(career_.count() - 1, told, Qt::AccessibleDescriptionRole);
    }
    description_.clear();
    career_.setCurrentIndex(-1);
    assignment_.clear();
    assignment_.setEnabled(false);
    accept_.setEnabled(false);
    career_.setFocus();
}

void KVNTransfer::SetAssignments(const QStringList& names) {
    assignment_.clear();
    assignment_.setEnabled(true);
    assignment_.addItems(names);
    assignment_.setCurrentIndex(-1);
}

std::optional<TransferAnswer> KVNTransfer::Result() const {
    if (ended_)
        return std::nullopt;
    return TransferAnswer{career_.currentText().toStdString(), assignment_.currentText().toStdString()};
}

}  // namespace korvane::ui
