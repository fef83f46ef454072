#include "app/kvn_gen.h"

#include <QAction>
#include <QCoreApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "character/characteristics.h"
#include "character/summary.h"
#include "engine/selection.h"
#include "engine/term_loop.h"
#include "output/character_text.h"
#include "ui/kvn_about.h"
#include "ui/message_boxes.h"
#include "ui/qt_text.h"

namespace korvane {

using ui::ToQt;

namespace {

constexpr std::array kOptionOrder = {
    Option::AutomaticGeneration,  Option::ForceNoEjectionOnMishap,
    Option::SelectSkillPackage,   Option::AddSkillsForConnections,
    Option::RandomSkills,         Option::ForcePromote,
    Option::CapSkillsAt4,         Option::SortSkillsByValue,
    Option::ForceAcademicSuccess,
};

const auto kAdvice = QStringLiteral("Roll until you like the characteristics, choose a career, and start it.");

void FillCombo(QComboBox& combo, const Names& names, std::string_view selected) {
    combo.clear();
    for (const auto& name : names)
        combo.addItem(ToQt(name));
    combo.setCurrentIndex(combo.findText(ToQt(selected)));
}

// A list under its label.
QWidget* Labelled(const QString& caption, ui::CopyList& list) {
    auto* const column = new QWidget;
    auto* const layout = new QVBoxLayout(column);
    layout->setContentsMargins({});
    auto* const label = new QLabel(caption);
    label->setBuddy(&list);
    layout->addWidget(label);
    layout->addWidget(&list, 1);
    return column;
}

}  // namespace

KVNGen::KVNGen(Session& session, ui::InputGuard& guard)
    : session_(session),
      guard_(guard),
      player_(session, *this, guard),
      selectCareer_("Select Career"),
      statistics_("Statistics"),
      optionsGroup_("Options"),
      detailsGroup_("Details"),
      characteristics_("characteristics", "Statistics"),
      roll_("Roll"),
      roll3Drop1_(ToQt(CaptionOf(RollingMethod::Roll3Drop1))),
      true2D_(ToQt(CaptionOf(RollingMethod::True2D))),
      startCareer_("Start Career"),
      scrapAndRestart_("Scrap and Restart"),
      skills_("skills", "Skills"),
      history_("history", "History"),
      options_(kOptionOrder, 1),
      details_("details", "Details") {
    setObjectName("KVNGen");
    setWindowTitle("Brisane Farwend Character Generation");
    SetUpMenu();
    SetUpSelection();
    SetUpStatistics();
    SetUpDetails();
    LayOut();
    SetUpHandlers();
}

void KVNGen::SetUpMenu() {
    auto* const exit = menuBar()->addAction("&Exit");
    connect(exit, &QAction::triggered, this, [this] { Do([] { QCoreApplication::exit(0); }); });
    auto* const about = menuBar()->addAction("&About");
    connect(about, &QAction::triggered, this, [this] { Do([this] { ShowAbout(); }); });
}

void KVNGen::SetUpSelection() {
    auto* const form = new QFormLayout(&selectCareer_);
    const auto add = [form](const QString& label, QComboBox& combo) {
        combo.setObjectName(label.toLower());
        combo.setAccessibleName(label);
        combo.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo.setMinimumContentsLength(14);
        form->addRow(label, &combo);
    };
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    add("Race", race_);
    add("Career", career_);
    add("Assignment", assignment_);
}

void KVNGen::SetUpStatistics() {
    auto* const column = new QVBoxLayout(&statistics_);
    constexpr int kMostLines = 11;
    characteristics_.setMaximumHeight(characteristics_.fontMetrics().lineSpacing() * kMostLines);
    // It is locked while a career runs, and most wanted then.
    auto palette = characteristics_.palette();
    palette.setColor(QPalette::Disabled, QPalette::Text, palette.color(QPalette::Active, QPalette::Text));
    characteristics_.setPalette(palette);
    column->addWidget(&characteristics_, 1);
    column->addWidget(&roll_);
    column->addWidget(&roll3Drop1_);
    column->addWidget(&true2D_);
    roll_.setObjectName("roll");
    roll_.setShortcut(Qt::CTRL | Qt::Key_R);
    roll_.setToolTip(tr("New characteristics (Ctrl+R)"));
    roll3Drop1_.setObjectName("roll3Drop1");
    true2D_.setObjectName("true2D");
    (session_.method == RollingMethod::True2D ? true2D_ : roll3Drop1_).setChecked(true);
    startCareer_.setObjectName("startCareer");
    startCareer_.setShortcut(Qt::CTRL | Qt::Key_Return);
    startCareer_.setToolTip(tr("Live the character's life (Ctrl+Return)"));
    scrapAndRestart_.setObjectName("scrapAndRestart");
}

void KVNGen::SetUpDetails() {
    auto* const column = new QVBoxLayout(&detailsGroup_);
    const std::array<std::pair<QLabel*, const char*>, 7> labels = {{{&age_, "age"},
                                                                    {&rank_, "rank"},
                                                                    {&allies_, "allies"},
                                                                    {&enemies_, "enemies"},
                                                                    {&contacts_, "contacts"},
                                                                    {&rivals_, "rivals"},
                                                                    {&medicalDebt_, "medicalDebt"}}};
    for (const auto& [label, name] : labels) {
        label->setObjectName(name);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        column->addWidget(label);
    }
    column->addWidget(&details_, 1);
}

void KVNGen::LayOut() {
    auto* const left = new QWidget;
    auto* const set_up = new QVBoxLayout(left);
    set_up->setContentsMargins({});
    set_up->addWidget(&selectCareer_);
    set_up->addWidget(&statistics_);
    set_up->addWidget(&startCareer_);
    set_up->addWidget(&scrapAndRestart_);
    set_up->addStretch();

    auto* const right = new QWidget;
    auto* const facts = new QVBoxLayout(right);
    facts->setContentsMargins({});
    facts->addWidget(&detailsGroup_, 1);
    auto* const boxes = new QVBoxLayout(&optionsGroup_);
    boxes->addWidget(&options_);
    facts->addWidget(&optionsGroup_);

    history_.FollowNewest();
    skills_.setMinimumWidth(skills_.fontMetrics().averageCharWidth() * 24);
    history_.setMinimumWidth(history_.fontMetrics().averageCharWidth() * 40);
    splitter_.setObjectName("splitter");
    splitter_.setChildrenCollapsible(false);
    splitter_.addWidget(left);
    splitter_.addWidget(Labelled("Skills", skills_));
    splitter_.addWidget(Labelled("History", history_));
    splitter_.addWidget(right);
    // In characters. The history takes most of what a wide screen has to give.
    constexpr std::array kWidths = {30, 32, 80, 36};
    constexpr std::array kStretch = {0, 1, 4, 1};
    QList<int> sizes;
    for (int i = 0; i < splitter_.count(); ++i) {
        const auto place = static_cast<std::size_t>(i);
        sizes << kWidths.at(place) * fontMetrics().averageCharWidth();
        splitter_.setStretchFactor(i, kStretch.at(place));
    }
    splitter_.setSizes(sizes);
    auto* const central = new QWidget;
    auto* const frame = new QVBoxLayout(central);
    frame->addWidget(&splitter_);
    setCentralWidget(central);
    statusBar()->setSizeGripEnabled(false);
    status_.setObjectName("status");
    statusBar()->addWidget(&status_, 1);
    const auto room = screen()->availableGeometry().size();
    resize(std::min(room.width() * 9 / 10, fontMetrics().averageCharWidth() * 190),
           std::min(room.height() * 9 / 10, fontMetrics().lineSpacing() * 50));
}

void KVNGen::SetUpHandlers() {
    player_.beforeDialog = [this] { Refresh(); };
    player_.optionsChanged = [this](const Options& options) { Guard([&] { TakeOptions(options); }); };
    options_.changed = [this](const Options& options) { Do([&] { TakeOptions(options); }); };
    connect(&race_, &QComboBox::activated, this, [this] { Do([this] { SelectRace(); }); });
    connect(&career_, &QComboBox::activated, this, [this] {
        Do([this] { LoadCareer(session_, session_.selection.race, career_.currentText().toStdString()); });
    });
    connect(&assignment_, &QComboBox::activated, this, [this] {
        Do([this] {
            LoadAssignment(session_, session_.selection.race, session_.selection.career,
                           assignment_.currentText().toStdString());
        });
    });
    connect(&roll_, &QPushButton::clicked, this, [this] { Do([this] { Roll(); }); });
    connect(&roll3Drop1_, &QRadioButton::clicked, this, [this] { Do([this] { Roll(); }); });
    connect(&true2D_, &QRadioButton::clicked, this, [this] { Do([this] { Roll(); }); });
    connect(&startCareer_, &QPushButton::clicked, this, [this] { Do([this] { StartCareer(); }); });
    connect(&scrapAndRestart_, &QPushButton::clicked, this, [this] { Do([this] { ScrapAndRestart(); }); });
}

void KVNGen::Load() {
    setWindowTitle(ToQt(session_.programTitle));
    characteristics_.clear();
    options_.Show(session_.options);
    ListRaces(session_);
    changes_ = {true, true, true, true, true};
    Refresh();
    startCareer_.setFocus();
    Say(kAdvice);
}

void KVNGen::ControlsLocked(bool locked) {
    if (locked_ && !locked)
        KeepCharacter();
    locked_ = locked;
    selectCareer_.setEnabled(!locked);
    statistics_.setEnabled(!locked);
    EnableStart();
}

void KVNGen::KeepCharacter() {
    kept_ = {session_.character, WholeDetailLines(session_)};
}

void KVNGen::EnableStart() {
    const auto& selection = session_.selection;
    startCareer_.setEnabled(!locked_ && !selection.career.empty() && !selection.assignment.empty());
    roll_.setEnabled(!selection.race.empty());
}

void KVNGen::SelectRace() {
    LoadRace(session_, race_.currentText().toStdString());
    afterError_ = false;
}

void KVNGen::Roll() {
    session_.method = true2D_.isChecked() ? RollingMethod::True2D : RollingMethod::Roll3Drop1;
    afterError_ = false;
    StartNewCharacter(session_);
}

void KVNGen::StartCareer() {
    Say(tr("A career is running."));
    Guard([this] { RunToTheEnd(); });
    player_.Finish();  // a scrapped character's mustering out may still be open
    history_.setFocus();
}

void KVNGen::RunToTheEnd() {
    kept_.reset();
    changes_.history = changes_.skills = true;
    // What an error left was kept to be read; it can't live on.
    if (std::exchange(afterError_, false))
        StartNewCharacter(session_);
    bool finished = false;
    afterError_ = true;
    RunCareer(session_, [&] {
        Refresh();
        finished = true;
        if (characterFinished)
            characterFinished();
    });
    afterError_ = false;
    Say(finished ? tr("The character is finished. The statistics are already the next one's.")
                 : tr("The character was scrapped. The statistics are the next one's."));
}

void KVNGen::ScrapAndRestart() {
    Say(kAdvice);
    ControlsLocked(false);
    afterError_ = false;
    kept_.reset();
    session_.character.Clear();
    ShowSummary(session_);
    StartNewCharacter(session_);
    changes_.history = changes_.skills = true;
}

void KVNGen::Say(const QString& text) {
    status_.setText(text);
}

void KVNGen::ShowAbout() {
    ui::KVNAbout about(windowTitle(), this);
    guard_.Run(about);
}

void KVNGen::TakeOptions(const Options& options) {
    session_.options = options;
    changes_.options = true;
    changes_.skills = true;
}

void KVNGen::Do(const std::function<void()>& action) {
    if (guard_.working()) {
        changes_ = {true, true, true, true, true};  // what the control shows of itself isn't so
        return;
    }
    const ui::InputGuard::Working working(guard_);
    Guard(action);
}

void KVNGen::Guard(const std::function<void()>& action) {
    try {
        action();
        Refresh();
    } catch (const RuleError& error) {
        player_.Finish();
        Refresh();
        Say(tr("An error stopped the generation."));
        ui::ShowError(guard_, this, windowTitle(), ToQt(error.what()),
                      tr("The generation stops here. What there is of the character stays in the window until the next "
                         "one is rolled."));
    } catch (const std::exception& error) {
        EndProgram(QString::fromStdString(error.what()));
    }
}

void KVNGen::EndProgram(const QString& error) {
    player_.Finish();
    Refresh();
    const bool living = session_.character.TermsTotal > 0;
    ui::ShowError(guard_, this, windowTitle(), error,
                  living ? tr("Korvane ends now. The details hold the character as far as it got, to be copied.")
                         : tr("Korvane ends now."),
                  living ? ToQt(CharacterText(session_)) : QString());
    QCoreApplication::exit(1);
}

void KVNGen::Refresh() {
    const auto changes = std::exchange(changes_, {});
    if (changes.selection)
        ShowSelection();
    if (changes.options)
        options_.Show(session_.options);
    if (changes.skills)
        skills_.SetLines(SkillLines(ShownCharacter(), session_.options[Option::SortSkillsByValue]));
    if (changes.history)
        history_.SetLines(ShownCharacter().History.lines());
    if (changes.summary || changes.selection)  // the rank's title is the assignment's
        ShowLabels();
    if (changes.summary || changes.history || changes.skills)
        ShowDetails();
}

void KVNGen::ShowSelection() {
    FillCombo(race_, *session_.selection.races, session_.selection.race);
    FillCombo(career_, *session_.selection.careers, session_.selection.career);
    FillCombo(assignment_, *session_.selection.assignments, session_.selection.assignment);
    EnableStart();
}

void KVNGen::ShowLabels() {
    const auto& character = session_.character;
    characteristics_.SetLines(CharacteristicLines(character));
    age_.setText(ToQt(AgeLabel(character)));
    rank_.setText(ToQt(RankLabel(character, session_.assignment)));
    allies_.setText(ToQt(AlliesLabel(character)));
    enemies_.setText(ToQt(EnemiesLabel(character)));
    contacts_.setText(ToQt(ContactsLabel(character)));
    rivals_.setText(ToQt(RivalsLabel(character)));
    medicalDebt_.setText(ToQt(MedicalDebtLabel(character)));
}

void KVNGen::ShowDetails() {
    details_.SetLines(kept_ ? kept_->details : DetailLines(session_.character));
}

}  // namespace korvane
