#include "ui/dialog_player.h"

#include <QApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QWindow>
#include <algorithm>
#include <exception>
#include <type_traits>
#include <utility>

#include "base/text.h"
#include "character/player_texts.h"
#include "output/question_texts.h"
#include "output/summary_texts.h"
#include "ui/message_boxes.h"
#include "ui/qt_text.h"

namespace korvane::ui {

namespace {

template <typename Texts>
QStringList ToList(const Texts& texts) {
    QStringList list;
    for (const auto& text : texts)
        list << ToQt(text);
    return list;
}

// Nobody listens to a dialog any more when this goes.
struct Unheard {
    KVNMuster& dialog;
    ~Unheard() {
        dialog.pressed = {};
        dialog.left = {};
    }
};

}  // namespace

DialogPlayer::DialogPlayer(const Session& session, QWidget& window, InputGuard& guard)
    : session_(session), window_(window), guard_(guard), odds_(session) {}

void DialogPlayer::Finish() {
    mayAbandon_ = false;
    if (muster_)
        muster_->hide();
}

void DialogPlayer::Announce() {
    if (beforeDialog)
        beforeDialog();
    if (muster_ && muster_->isVisible()) {
        muster_->ShowState(session_.selection.career, session_.character.MusterRolls,
                           session_.character.MusterBonusCount, session_.musterResults.cash.lines(),
                           session_.musterResults.benefits.lines());
        muster_->SetHistory(HistoryTexts(session_.musterResults.historyBefore));
    }
}

template <typename Dialog>
Dialog& DialogPlayer::Prepare(std::unique_ptr<Dialog>& dialog) {
    Announce();
    if (!dialog) {
        if constexpr (std::is_constructible_v<Dialog, QWidget*, InputGuard&>)
            dialog = std::make_unique<Dialog>(&window_, guard_);
        else
            dialog = std::make_unique<Dialog>(&window_);
    }
    // The dialogs stay the main window's, but stand before the one that is in front.
    if (auto* const front = Front()->windowHandle(); front != nullptr && Front() != dialog.get()) {
        dialog->winId();
        dialog->windowHandle()->setTransientParent(front);
    }
    dialog->setWindowTitle(Title());
    dialog->back().Offer(steps);
    return *dialog;
}

template <typename Dialog>
void DialogPlayer::Remind(Dialog& dialog) const {
    dialog.recent().Show(HistoryTexts());
    dialog.setAccessibleDescription(dialog.recent().text());
}

void DialogPlayer::RunNeeded(NeededDialog& dialog) {
    dialog.mayScrap = [this, &dialog] {
        return AskYesNo(guard_, &dialog, Title(), {kScrapQuestion, {}, Icon::Question, false}) == QMessageBox::Yes;
    };
    for (;;) {
        const int result = RunWithSteps([&] { return guard_.Run(dialog); });
        if (result == QDialog::Accepted)
            return;
        // What else hides a dialog, a window manager that kills it say, is no answer. One that is still there was left
        // because the program ends.
        if (result == NeededDialog::kScrapped)
            throw CharacterScrapped();
        if (dialog.isVisible())
            throw PlayerLeft();
    }
}

int DialogPlayer::RunWithSteps(const std::function<int()>& run) {
    for (;;) {
        const int result = run();
        if (result == kWentBack && steps->MayGoBack()) {
            Finish();
            throw WentBack{steps->MomentCount() - 1};
        }
        if (result == kWentForward && steps->MayGoForward()) {
            Finish();
            throw WentForward();
        }
        if (result == kWentAway && steps->IsKept()) {
            Finish();
            throw PlayerLeft();
        }
        if (result != kWentToHistory)
            return result;
        const bool musters = muster_ && muster_->isVisible();
        if (musters)
            muster_->hide();
        if (const auto moment = chooseMoment ? chooseMoment() : std::nullopt) {
            Finish();
            throw WentBack{*moment};
        }
        if (musters)
            muster_->show();
    }
}

QString DialogPlayer::Title() const {
    return ToQt(session_.programTitle);
}

QWidget* DialogPlayer::Front() const {
    auto* const modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : &window_;
}

std::vector<std::string> DialogPlayer::SkillTexts() const {
    return SkillLines(session_.character, session_.options[Option::SortSkillsByValue]);
}

std::span<const std::string> DialogPlayer::HistoryTexts(std::size_t from) const {
    const auto lines = session_.character.History.lines();
    return lines.subspan(std::min(from, lines.size()));
}

std::vector<BenefitRow> DialogPlayer::BenefitRows() const {
    std::vector<BenefitRow> rows;
    const auto& career = session_.career;
    for (std::size_t i = 1; i < career.otherBenefit.size(); ++i)
        rows.push_back({ToQt(Concat("Cr", Trim(career.cashLine.at(i)))), ToQt(career.otherBenefit.at(i))});
    return rows;
}

int DialogPlayer::Choose(const ChoiceQuestion& question) {
    auto& dialog = Prepare(choice_);
    dialog.SetQuestion(question);
    // One that may be left is none of the life's.
    dialog.recent().Show(question.mayLeave ? std::span<const std::string>() : HistoryTexts());
    if (question.mayLeave) {
        dialog.back().Offer(nullptr);
        dialog.mayScrap = {};
        dialog.odds().Withdraw();
        return guard_.Run(dialog) == QDialog::Accepted ? dialog.picked() : 0;
    }
    const OddsOffer odds(odds_, dialog.odds(), [&question] { return play::AlternativesOf(question); });
    RunNeeded(dialog);
    return dialog.picked();
}

std::vector<int> DialogPlayer::Select(const ListQuestion& question) {
    auto& dialog = Prepare(list_);
    dialog.SetQuestion(question);
    Remind(dialog);
    const OddsOffer odds(odds_, dialog.odds(), [&question] { return play::AlternativesOf(question); });
    const int result = RunWithSteps([&] { return guard_.Run(dialog); });
    return result == QDialog::Accepted ? dialog.Marked() : std::vector<int>();
}

bool DialogPlayer::Ask(const YesNoQuestion& question) {
    Announce();
    const auto title = question.title.empty() ? Title() : ToQt(question.title);
    // Beside the dialog of mustering out they are in sight.
    const auto recent = Front() == &window_ ? HistoryTexts() : std::span<const std::string>();
    std::optional<OddsOffer> odds;
    const auto offer = [&](OddsButton& button) {
        odds.emplace(odds_, button, [&question] { return play::AlternativesOf(question); });
    };
    const bool yes = RunWithSteps([&] { return AskYesNo(guard_, Front(), title, question, steps, recent, offer); }) ==
                     QMessageBox::Yes;
    if (std::exchange(mayAbandon_, false) && yes)
        Finish();
    return yes;
}

void DialogPlayer::Tell(const Notice& notice) {
    Announce();
    RunWithSteps([&] { return ShowMessage(guard_, Front(), Title(), ToQt(notice.text), notice.icon, steps); });
}

int DialogPlayer::PickTable(const TableQuestion& question) {
    auto& dialog = Prepare(tables_);
    dialog.SetQuestion(question);
    dialog.SetHeldSkills(SkillTexts());
    Remind(dialog);
    const OddsOffer odds(odds_, dialog.odds(), [&question] { return play::AlternativesOf(question); });
    PlaceOverUpperPart(dialog, window_);
    RunNeeded(dialog);
    return dialog.picked();
}

EndOfTermAnswer DialogPlayer::EndOfTerm(const EndOfTermQuestion& question) {
    auto& dialog = Prepare(endTerm_);
    dialog.SetQuestion(question);
    dialog.SetSkills(SkillTexts());
    dialog.SetHistory(session_.character, session_.race);
    const OddsOffer odds(odds_, dialog.odds(), [&question] { return play::AlternativesOf(question); });
    PlaceOverUpperPart(dialog, window_);
    dialog.optionsChanged = [this, &dialog, &question](const Options& options) {
        if (optionsChanged)
            optionsChanged(options);
        dialog.SetSkills(SkillTexts());
        OddsOffer::Make(odds_, dialog.odds(), [terms = question.termsTotal, options] {
            return play::AlternativesOf(EndOfTermQuestion{terms, options});
        });
    };
    RunNeeded(dialog);
    return dialog.Result();
}

std::optional<TransferAnswer> DialogPlayer::Transfer(const TransferQuestion& question) {
    auto& dialog = Prepare(transfer_);
    dialog.SetQuestion(question);
    dialog.SetCost(ToQt(CostOfLeavingText(session_)));
    const OddsOffer odds(odds_, dialog.odds(), [&question] { return play::AlternativesOf(question); });
    PlaceOverUpperPart(dialog, window_);
    // A fault met while the dialog lists assignments is kept until its event handler is left.
    std::exception_ptr fault;
    dialog.careerChosen = [&](const QString& career) {
        try {
            dialog.SetAssignments(ToList(*question.assignmentsOf(career.toStdString())));
        } catch (...) {
            fault = std::current_exception();
            dialog.done(NeededDialog::kScrapped);
        }
    };
    try {
        RunNeeded(dialog);
        dialog.careerChosen = {};
    } catch (const CharacterScrapped&) {
        dialog.careerChosen = {};
        if (fault)
            std::rethrow_exception(fault);
        throw;
    }
    return dialog.Result();
}

std::optional<MusterPress> DialogPlayer::RunMuster(KVNMuster& dialog) {
    constexpr int kPressed = 1;
    std::optional<MusterPress> press;
    QEventLoop loop;
    // One press at a time: a second one before the rules have seen the first doesn't count.
    bool waiting = true;
    const auto answer = [&](int result) {
        if (std::exchange(waiting, false))
            loop.exit(result);
    };
    dialog.pressed = [&](const MusterPress& pressed) {
        if (waiting)
            press = pressed;
        answer(kPressed);
    };
    dialog.left = answer;
    const Unheard unheard{dialog};
    RunWithSteps([&] {
        waiting = true;
        dialog.show();
        dialog.activateWindow();
        const InputGuard::Asking asking(guard_, dialog);
        return loop.exec();
    });
    return press;
}

MusterPress DialogPlayer::Muster(const MusterQuestion& question) {
    auto& dialog = Prepare(muster_);
    dialog.SetQuestion(question);
    dialog.SetTable(BenefitRows(), ToQt(BenefitModifiersText(session_.character, question)));
    dialog.SetForfeit(ToQt(ForfeitText(question.rolls)));
    dialog.SetHistory(HistoryTexts(session_.musterResults.historyBefore));
    const OddsOffer odds(odds_, dialog.odds(), [&question] { return play::AlternativesOf(question); });
    const auto press = RunMuster(dialog);
    if (!press)  // the program ends
        throw PlayerLeft();
    const bool done = press->button == MusterButton::Done;
    mayAbandon_ = done && question.rolls > 0 && !session_.Automatic();
    if (done && !mayAbandon_)
        dialog.hide();
    return *press;
}

}  // namespace korvane::ui
