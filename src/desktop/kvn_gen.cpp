#include "desktop/kvn_gen.h"

#include <QMessageBox>
#include <utility>

#include "base/text.h"
#include "character/characteristics.h"
#include "character/summary.h"
#include "desktop/moment_chooser.h"
#include "engine/selection.h"
#include "engine/term_loop.h"
#include "output/character_text.h"
#include "output/summary_texts.h"
#include "ui/kvn_about.h"
#include "ui/looks.h"
#include "ui/message_boxes.h"
#include "ui/qt_text.h"

namespace korvane {

using ui::ToQt;

namespace {

constexpr auto kAdvice = "Roll until you like the characteristics, choose a career, and start it.";

void FillCombo(QComboBox& combo, const Names& names, std::string_view selected) {
    combo.clear();
    for (const auto& name : names)
        combo.addItem(ToQt(name));
    combo.setCurrentIndex(combo.findText(ToQt(selected)));
}

}  // namespace

KVNGen::KVNGen(Session& session, ui::InputGuard& guard, Dice& dice)
    : session_(session),
      guard_(guard),
      player_(session, *this, guard),
      controller_(session, dice, player_),
      journals_(*this, guard, controller_),
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
      options_(kAllOptions, 2),
      details_("details", "Details") {
    session.seams.display = &controller_;
    setObjectName("KVNGen");
    setWindowTitle("Brisane Farwend Character Generation");
    SetUpMenu();
    SetUpSelection();
    SetUpStatistics();
    SetUpDetails();
    LayOut();
    SetUpPlayer();
    SetUpHandlers();
}

void KVNGen::SetUpPlayer() {
    player_.steps = &controller_.life();
    player_.odds().openQuestion = [this](std::vector<play::Alternative> alternatives) {
        return play::QuestionIn(session_, controller_.life().tape(), std::move(alternatives));
    };
    player_.chooseMoment = [this] { return ChooseQuestion(); };
    controller_.life().goesOn = [this](const journal::Divergence& divergence) {
        return ui::AskYesNo(guard_, this, windowTitle(),
                            {Concat(divergence.what(),
                                    "\n\nThe rules have changed since then. Go on from the last "
                                    "answer that fits?")}) == QMessageBox::Yes;
    };
    player_.beforeDialog = [this] { Refresh(); };
    player_.optionsChanged = [this](const Options& options) { Guard([&] { controller_.SetOptions(options); }); };
    journals_.live = [this](const auto& live) { Live(live); };
    journals_.say = [this](const QString& text) { Say(text); };
}

void KVNGen::SetUpHandlers() {
    options_.changed = [this](const Options& options) { Do([&] { controller_.SetOptions(options); }); };
    life_.chosen = [this](int line) { GoToLine(line); };
    connect(&race_, &QComboBox::activated, this,
            [this] { Do([this] { controller_.SelectRace(race_.currentText().toStdString()); }); });
    connect(&career_, &QComboBox::activated, this,
            [this] { Do([this] { controller_.SelectCareer(career_.currentText().toStdString()); }); });
    connect(&assignment_, &QComboBox::activated, this,
            [this] { Do([this] { controller_.SelectAssignment(assignment_.currentText().toStdString()); }); });
    const auto roll = [this] {
        Do([this] { controller_.Roll(true2D_.isChecked() ? RollingMethod::True2D : RollingMethod::Roll3Drop1); });
    };
    connect(&roll_, &QPushButton::clicked, this, roll);
    connect(&roll3Drop1_, &QRadioButton::clicked, this, roll);
    connect(&true2D_, &QRadioButton::clicked, this, roll);
    connect(&startCareer_, &QPushButton::clicked, this, [this] { Do([this] { StartCareer(); }); });
    connect(&scrapAndRestart_, &QPushButton::clicked, this, [this] {
        Do([this] {
            Say(tr(kAdvice));
            controller_.ScrapAndRestart();
        });
    });
}

void KVNGen::Load() {
    setWindowTitle(ToQt(session_.programTitle));
    characteristics_.clear();
    controller_.Load();
    Refresh();
    startCareer_.setFocus();
    Say(tr(kAdvice));
}

void KVNGen::StartCareer() {
    Live([this](const play::RecordedLife::Finished& finished) { return controller_.StartCareer(finished); });
}

void KVNGen::Live(const std::function<LifeEnd(const play::RecordedLife::Finished& finished)>& live) {
    Say(tr("A career is running."));
    Guard([&] {
        const auto end = live([this] {
            Refresh();
            return characterFinished && characterFinished();
        });
        Say(end == LifeEnd::MusteredOut ? WordsAtTheEnd()
                                        : tr("The character was scrapped. The statistics are the next one's."));
    });
    player_.Finish();  // a scrapped character's mustering out may still be open
    activateWindow();  // where two dialogs close at once, nobody else gives the input back
    history_.setFocus();
}

void KVNGen::ExportEnded() {
    const auto& ended = controller_.ended();
    if (!ended || ended->end != LifeEnd::MusteredOut) {
        ui::ShowMessage(guard_, this, windowTitle(), tr("There is no finished character to export."),
                        Icon::Information);
        return;
    }
    if (exportAgain)
        controller_.WithEnded(exportAgain);
}

std::optional<std::size_t> KVNGen::ChooseQuestion() {
    Refresh();
    Say(tr("Choose the line to go back to (Return, double click, or the menu); Escape returns to the question."));
    const auto chosen = ChooseMoment(history_, controller_.life(), guard_);
    Say(tr("A career is running."));
    return chosen;
}

QString KVNGen::WordsAtTheEnd() const {
    const auto& open = controller_.ended()->open;
    return open.empty() ? tr("The character is finished. The statistics are already the next one's.")
                        : tr("The character is finished. Still to decide: %1.").arg(ToQt(open));
}

void KVNGen::GoToLine(int line) {
    history_.setCurrentRow(line);
    history_.scrollToItem(history_.currentItem(), QAbstractItemView::PositionAtTop);
    history_.setFocus();
}

void KVNGen::Say(const QString& text) {
    status_.Say(text);
}

void KVNGen::ShowAbout() {
    ui::KVNAbout about(windowTitle(), this);
    guard_.Run(about);
}

void KVNGen::Do(const std::function<void()>& action) {
    if (guard_.working()) {
        controller_.ChangeAll();  // what the control shows of itself isn't so
        return;
    }
    const ui::InputGuard::Working working(guard_);
    Guard(action);
}

void KVNGen::Guard(const std::function<void()>& action) {
    try {
        action();
        Refresh();
    } catch (const PlayerLeft&) {
        player_.Finish();
        Refresh();
        Say(tr("The life can be gone on with from its journal (Ctrl+O)."));
    } catch (const RuleError& error) {
        TellStopped(ToQt(error.what()));
    } catch (const journal::JournalError& error) {
        TellStopped(ToQt(error.what()));
    } catch (const journal::Divergence& divergence) {
        TellStopped(ToQt(divergence.what()));
    } catch (const play::MissingSelection& missing) {
        TellStopped(ToQt(missing.what()));
    } catch (const std::exception& error) {
        EndProgram(QString::fromStdString(error.what()));
    }
}

void KVNGen::TellStopped(const QString& error) {
    player_.Finish();
    Refresh();
    Say(tr("An error stopped the generation."));
    ui::ShowError(guard_, this, windowTitle(), error,
                  tr("The generation stops here. What there is of the character stays in the window until the next one "
                     "is rolled."));
}

void KVNGen::EndProgram(const QString& error) {
    player_.Finish();
    Refresh();
    const bool living = session_.character.TermsTotal > 0;
    ui::ShowError(guard_, this, windowTitle(), error,
                  living ? tr("Korvane ends now. The details hold the character as far as it got, to be copied.")
                         : tr("Korvane ends now."),
                  living ? ToQt(CharacterText(session_)) : QString());
    guard_.EndProgram(1);
}

void KVNGen::Refresh() {
    if (controller_.showsEnded())
        return;
    const auto changes = controller_.TakeChanges();
    const auto& shown = controller_.shown();
    if (changes.selection)
        ShowSelection();
    if (changes.selection || changes.state)
        ShowState();
    if (changes.options)
        options_.Show(session_.options);
    if (changes.skills)
        skills_.SetLines(SkillLines(shown, session_.options[Option::SortSkillsByValue]));
    if (changes.history) {
        history_.Tell(shown, controller_.shownRace());
        life_.Show(StripOf(shown, controller_.shownRace()));
    }
    if (changes.summary || changes.selection)  // the rank's title is the assignment's
        ShowLabels();
    if (changes.summary || changes.history || changes.skills)
        ShowDetails();
}

void KVNGen::ShowSelection() {
    FillCombo(race_, *session_.selection.races, session_.selection.race);
    FillCombo(career_, *session_.selection.careers, session_.selection.career);
    FillCombo(assignment_, *session_.selection.assignments, session_.selection.assignment);
}

void KVNGen::ShowState() {
    const bool running = controller_.state() == GenerationController::State::Running;
    selectCareer_.setEnabled(!running);
    statistics_.setEnabled(!running);
    startCareer_.setEnabled(controller_.mayStart());
    roll_.setEnabled(controller_.mayRoll());
}

void KVNGen::ShowLabels() {
    characteristics_.SetLines(CharacteristicLines(session_.character));
    characteristics_.ShowAllLines();
    const auto labels = controller_.labels();
    age_.setText(ToQt(labels.age));
    rank_.setText(ToQt(labels.rank));
    allies_.setText(ToQt(labels.allies));
    enemies_.setText(ToQt(labels.enemies));
    contacts_.setText(ToQt(labels.contacts));
    rivals_.setText(ToQt(labels.rivals));
    medicalDebt_.setText(ToQt(labels.medicalDebt));
    next_.setText(controller_.ended() ? tr("The next character") : tr("Set-up"));
    heading_.setText(ToQt(controller_.heading()));
    heading_.setVisible(!heading_.text().isEmpty());
}

void KVNGen::ShowDetails() {
    const auto& ended = controller_.ended();
    details_.SetLines(ended ? ended->details : DetailLines(session_.character));
}

}  // namespace korvane
