#include "ui/kvn_about.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace korvane::ui {

namespace {

constexpr auto kHeading =
    "The Farwend rule book, its names and its texts belong to their publisher. Korvane is an independent aid for "
    "players who own the rules and does not replace them.";

struct NoticeText {
    const char* name;
    const char* text;
};

constexpr std::array<NoticeText, 4> kNotices = {{
    {"Permission",
     "Korvane uses elements of the tabletop role-playing game Farwend, second edition, by permission. All rights in "
     "the game, its name and its setting are acknowledged as those of its publisher."},
    {"House rules",
     "House rules of our own table may have found their way into this program and its data. If you see one, or miss "
     "one of yours, please write to the authors: the tracker of the Korvane project reads every letter."},
    {"Price",
     "Korvane is free software under the MIT licence. There is no fee to pay, now or later, nothing is locked, and it "
     "does not stop working after a time."},
    {"A request",
     "If Korvane has given you and your friends a good evening, please give a small sum to a charity of your choice."},
}};

}  // namespace

KVNAbout::KVNAbout(const QString& programTitle, QWidget* parent)
    : QDialog(parent), heading_(tr(kHeading)), agree_("I Agree") {
    setObjectName("KVNAbout");
    setWindowTitle(programTitle);
    setModal(true);
    auto* const column = new QVBoxLayout(this);
    heading_.setObjectName("heading");
    heading_.setWordWrap(true);
    column->addWidget(&heading_);
    for (std::size_t i = 0; i < notices_.size(); ++i) {
        auto& notice = notices_.at(i);
        notice.setObjectName(QString("notice%1").arg(i + 1));
        notice.setAccessibleName(tr(kNotices.at(i).name));
        notice.setPlainText(tr(kNotices.at(i).text));
        notice.setReadOnly(true);
        notice.setTabChangesFocus(true);
        notice.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        constexpr int kLines = 5;
        notice.setFixedHeight(notice.fontMetrics().lineSpacing() * kLines);
        column->addWidget(&notice);
    }
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(&agree_);
    column->addLayout(buttons);
    agree_.setObjectName("agree");
    agree_.setDefault(true);
    agree_.setFocus();
    connect(&agree_, &QPushButton::clicked, this, &QDialog::accept);
    resize(fontMetrics().averageCharWidth() * 80, sizeHint().height());
}

}  // namespace korvane::ui
