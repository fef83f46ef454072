#include "ui/kvn_end_term.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "character/player_texts.h"
#include "ui/qt_text.h"

namespace korvane::ui {

namespace {

constexpr std::array kOrder = {
    Option::ForceAcademicSuccess, Option::SortSkillsByValue,
    Option::CapSkillsAt4,         Option::ForcePromote,
    Option::RandomSkills,         Option::AddSkillsForConnections,
    Option::SelectSkillPackage,   Option::ForceNoEjectionOnMishap,
    Option::AutomaticGeneration,
};
// In the order of their answers.
constexpr std::array kAnswerNames = {"reEnlist", "transfer", "musterOut", "scrap"};

}  // namespace

KVNEndTerm::KVNEndTerm(QWidget* parent)
    : NeededDialog(parent),
      back_(*this),
      odds_(*this),
      options_("Options"),
      boxes_(kOrder, 3),
      heading_(ToQt(kEndOfTermHeading)),
      skillsLabel_("Skills"),
      historyLabel_("History"),
      skills_("skills", "Skills"),
      history_("history", "History") {
    setObjectName("KVNEndTerm");
    heading_.setObjectName("heading");
    auto font = heading_.font();
    font.setBold(true);
    heading_.setFont(font);
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        buttons_.at(i).setText(ToCaption(kEndOfTermCaptions.at(i)));
        buttons_.at(i).setObjectName(kAnswerNames.at(i));
        buttons_.at(i).SetKey(QString::number(i + 1));
        connect(&buttons_.at(i), &QPushButton::clicked, this, [this, i] {
            choice_ = static_cast<EndOfTermChoice>(i + 1);
            accept();
        });
    }
    boxes_.changed = [this](const Options& options) {
        if (optionsChanged)
            optionsChanged(options);
    };
    LayOut();
}

void KVNEndTerm::LayOut() {
    skillsLabel_.setBuddy(&skills_);
    historyLabel_.setBuddy(&history_);
    auto* const grid = new QGridLayout(this);
    auto* const buttons = new QVBoxLayout;
    for (auto& button : buttons_)
        buttons->addWidget(&button);
    buttons->addStretch();
    buttons->addWidget(&odds_);
    buttons->addWidget(&back_);
    grid->addWidget(&heading_, 0, 0, 1, 3);
    grid->addLayout(buttons, 1, 0, 2, 1);
    grid->addWidget(&skillsLabel_, 1, 1);
    grid->addWidget(&historyLabel_, 1, 2);
    grid->addWidget(&skills_, 2, 1);
    grid->addWidget(&history_, 2, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 2);
    auto* const box = new QVBoxLayout(&options_);
    box->addWidget(&boxes_);
    grid->addWidget(&options_, 3, 0, 1, 3);
    resize(fontMetrics().averageCharWidth() * 120, fontMetrics().lineSpacing() * 32);
}

void KVNEndTerm::SetQuestion(const EndOfTermQuestion& question) {
    boxes_.Show(question.options);
    buttons_.front().setFocus();
}

void KVNEndTerm::SetSkills(const std::vector<std::string>& lines) {
    skills_.SetLines(lines);
}

void KVNEndTerm::SetHistory(const CharacterRecord& character, const RaceRecord& race) {
    history_.Tell(character, race);
}

void KVNEndTerm::keyPressEvent(QKeyEvent* event) {
    const int digit = DigitOf(*event);
    if (digit >= 1 && digit <= static_cast<int>(buttons_.size()))
        buttons_.at(static_cast<std::size_t>(digit - 1)).click();
    else
        NeededDialog::keyPressEvent(event);
}

void KVNEndTerm::showEvent(QShowEvent* event) {
    NeededDialog::showEvent(event);
    history_.scrollToBottom();
}

}  // namespace korvane::ui
