#include "ui/kvn_transfer.h"

#include <QGridLayout>
#include <QHBoxLayout>

#include "character/player_texts.h"
#include "ui/qt_text.h"

namespace korvane::ui {

KVNTransfer::KVNTransfer(QWidget* parent)
    : NeededDialog(parent),
      heading_(ToQt(kTransferHeading)),
      notice_(ToQt(kTransferNotice)),
      careerLabel_("Career"),
      assignmentLabel_("Assignment"),
      back_(*this),
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
    connect(&career_, &QComboBox::activated, this, [this] {
        accept_.setEnabled(true);
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
    grid->addWidget(&assignmentLabel_, 2, 0);
    grid->addWidget(&assignment_, 2, 1);
    cost_.setObjectName("cost");
    cost_.setWordWrap(true);
    cost_.setTextFormat(Qt::PlainText);
    grid->addWidget(&notice_, 3, 0, 1, 2);
    grid->addWidget(&cost_, 4, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(4, 1);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(&back_);
    buttons->addStretch();
    buttons->addWidget(&accept_);
    buttons->addWidget(&endCareer_);
    grid->addLayout(buttons, 5, 0, 1, 2);
    resize(fontMetrics().averageCharWidth() * 66, sizeHint().height());
}

void KVNTransfer::SetQuestion(const TransferQuestion& question) {
    ended_ = false;
    career_.clear();
    for (const auto& name : question.careers)
        career_.addItem(ToQt(name));
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
