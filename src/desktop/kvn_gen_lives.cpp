// What the main window does with lives beside living them: compares, and has something of them rolled anew.

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

void KVNGen::RollHomeWorldAnew() {
    const auto& ended = controller_.life().ended();
    if (!ended || controller_.ended()->end != LifeEnd::MusteredOut) {
        const bool rolled = controller_.RollHomeWorldAnew();
        Refresh();
        Say(rolled ? tr("The home world was rolled anew: %1").arg(ToQt(HomeWorldText(session_.character)))
                   : tr("The rule data have no tables of home worlds."));
        return;
    }
    auto tape = *ended;
    ClockDice dice;
    Session other(DataFolder(session_.data.location()), {nullptr, nullptr, &nobody_});
    if (!play::RollHomeWorldAnew(other, tape.lines, dice)) {
        Say(tr("The rule data have no tables of home worlds."));
        return;
    }
    const auto whole = tape.lines.size();
    // The same life in all else: nobody has to export it at once.
    Live([&](const play::RecordedLife::Finished& /*finished*/) {
        return controller_.LiveOther(play::UpTo(std::move(tape), whole), [] { return false; });
    });
}

void KVNGen::LiveAnother() {
    const auto& ended = controller_.life().ended();
    if (!ended || !ended->end || ended->end->kind != journal::EndKind::MusteredOut) {
        ui::ShowMessage(guard_, this, windowTitle(),
                        tr("There is no finished character whose life could go another way."), Icon::Information);
        return;
    }
    const auto tape = *ended;
    Session other(DataFolder(session_.data.location()), {nullptr, nullptr, &nobody_});
    const auto terms = play::TermBeginnings(other, tape);
    std::vector<std::string_view> headings;
    headings.reserve(terms.size());
    for (const auto& term : terms)
        headings.push_back(term.heading);
    if (headings.empty())
        return;
    constexpr auto kTitle = "Live another life from";
    const auto last = static_cast<int>(headings.size()) - 1;
    const int picked = player_.Choose({kTitle, headings, last, true});
    if (picked == 0)
        return;
    Live([&](const play::RecordedLife::Finished& finished) {
        return controller_.LiveOther(play::UpTo(tape, terms.at(static_cast<std::size_t>(picked) - 1).line), finished);
    });
}

}  // namespace korvane
