// What the main window does with lives beside living them: compares, and has something of them rolled anew.

#include <exception>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "character/characteristics.h"
#include "desktop/kvn_gen.h"
#include "output/summary_texts.h"
#include "play/other_life.h"
#include "ui/kvn_careers.h"
#include "ui/message_boxes.h"
#include "ui/qt_text.h"

namespace korvane {

using ui::ToQt;

void KVNGen::CompareCareers() {
    if (session_.selection.race.empty())
        return;
    if (HasFailed())
        return;
    QStringList values;
    for (const auto& line : CharacteristicLines(session_.character))
        values << ToQt(line).simplified();
    ui::KVNCareers careers(this, session_.data.location(), play::ApplicantOf(session_),
                           ToQt(session_.selection.race) + QStringLiteral(": ") + values.join(QStringLiteral(", ")));
    if (guard_.Run(careers) != QDialog::Accepted)
        return;
    const auto& [career, assignment] = careers.chosen();
    controller_.SelectCareer(career);
    if (!assignment.empty())
        controller_.SelectAssignment(assignment);
}

bool KVNGen::HasFailed() {
    const bool failed = controller_.state() == GenerationController::State::Failed;
    if (failed)
        ui::ShowMessage(guard_, this, windowTitle(), tr("Roll a new character first: this one's life has failed."),
                        Icon::Information);
    return failed;
}

void KVNGen::RollHomeWorldAnew() {
    if (HasFailed())
        return;
    const auto& ended = controller_.ended();
    const bool of_ended = ended && ended->end == LifeEnd::MusteredOut;
    Look([&] {
        const bool rolled = of_ended ? controller_.RollEndedHomeWorldAnew() : controller_.RollHomeWorldAnew();
        Refresh();
        Say(rolled ? tr("The home world was rolled anew: %1")
                         .arg(ToQt(HomeWorldText(of_ended ? ended->record : session_.character)))
                   : tr("There is no home world that could be rolled anew."));
    });
}

void KVNGen::LiveAnother() {
    const auto& ended = controller_.ended();
    if (!ended || ended->end != LifeEnd::MusteredOut) {
        ui::ShowMessage(guard_, this, windowTitle(),
                        tr("There is no finished character whose life could go another way."), Icon::Information);
        return;
    }
    const auto tape = *controller_.life().ended();
    std::vector<play::TermBeginning> terms;
    Look([&] {
        Session other(DataFolder(session_.data.location()), {nullptr, nullptr, &nobody_});
        terms = play::TermBeginnings(other, tape);
    });
    if (terms.empty())
        return;
    std::vector<std::string_view> headings;
    headings.reserve(terms.size());
    for (const auto& term : terms)
        headings.push_back(term.heading);
    const auto last = static_cast<int>(headings.size()) - 1;
    const int picked = player_.Choose({"Live another life from", headings, last, true});
    if (picked == 0)
        return;
    Live([&](const play::RecordedLife::Finished& finished) {
        return controller_.LiveOther(play::UpTo(tape, terms.at(static_cast<std::size_t>(picked) - 1).line), finished);
    });
}

// Nothing is lived by that, so nothing ends by what stands in its way.
void KVNGen::Look(const std::function<void()>& look) {
    try {
        look();
    } catch (const std::exception& error) {
        ui::ShowError(guard_, this, windowTitle(), ToQt(error.what()), tr("This life can't be lived again."));
    }
}

}  // namespace korvane
