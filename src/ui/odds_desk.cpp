#include "ui/odds_desk.h"

#include <exception>
#include <utility>

#include "ui/qt_text.h"

namespace korvane::ui {

namespace {

// Lives on from each answer, on a session of its own, and tells what was found so far from time to time.
template <typename Tell>
void Reckon(const HeldPath& rules, const play::OpenQuestion& question, const Background::Stops& stops,
            const Tell& tell) {
    Display nobody;
    Session session(DataFolder(rules, DataFolder::Reading::Once), {nullptr, nullptr, &nobody});
    play::Odds odds(session, question);
    for (const auto lives : {200U, 500U, 1000U, 2000U}) {
        odds.LiveUpTo(lives, stops);
        if (stops())
            return;
        tell(play::TableOf(odds.figures()));
    }
}

}  // namespace

void OddsDesk::Show(OddsButton& button, const Alternatives& alternatives) {
    // The button may be gone by then, with a message.
    const QPointer<OddsButton> held(&button);
    const auto fail = [held](const QString& why) {
        if (held != nullptr)
            held->Change([&](OddsPanel& panel) { panel.Fail(why); });
    };
    const auto show = [held](const play::OddsTable& table) {
        if (held != nullptr)
            held->Change([&](OddsPanel& panel) { panel.Show(table); });
    };
    try {
        auto answers = alternatives();
        if (answers.size() < 2) {
            button.Change([](OddsPanel& panel) { panel.Say(QObject::tr("There is only one answer.")); });
            return;
        }
        button.Change([&](OddsPanel& panel) { panel.Await(static_cast<int>(answers.size())); });
        if (!background_)
            background_.emplace();
        background_->Begin(
            [rules = session_.data.location(), question = openQuestion(std::move(answers)), show](
                const Background::Stops& stops, const Background::Tell& tell) {
                Reckon(rules, question, stops,
                       [&](play::OddsTable table) { tell([show, table = std::move(table)] { show(table); }); });
            },
            fail);
    } catch (const std::exception& error) {
        // The dialog asks on without them; what a file has met it with is told where the rules need it.
        fail(ToQt(error.what()));
    }
}

void OddsDesk::Stop() {
    if (background_)
        background_->Stop();
}

OddsOffer::OddsOffer(OddsDesk& desk, OddsButton& button, const Alternatives& alternatives)
    : desk_(desk), button_(&button) {
    Make(desk, button, alternatives);
}

OddsOffer::~OddsOffer() {
    if (button_ != nullptr)
        button_->folded = {};
    desk_.Stop();
}

void OddsOffer::Make(OddsDesk& desk, OddsButton& button, const Alternatives& alternatives) {
    if (!desk.openQuestion) {
        button.Withdraw();
        return;
    }
    button.setEnabled(true);
    button.Fold(desk.open_);
    if (desk.open_)
        desk.Show(button, alternatives);
    button.folded = [&desk, &button, alternatives](bool open) {
        desk.open_ = open;
        if (open)
            desk.Show(button, alternatives);
        else
            desk.Stop();
    };
}

}  // namespace korvane::ui
