#include "engine/transfer.h"

#include <string>

#include "base/error.h"
#include "engine/enlistment.h"
#include "engine/mustering_out.h"
#include "engine/selection.h"

namespace korvane {

namespace {

// A career whose file can't be read is told when it is chosen.
std::string DescriptionOf(Session& session, std::string_view career) {
    try {
        return std::string(session.data.Career(session.selection.race, career).record.description);
    } catch (const FileError&) {
        return {};
    }
}

void EnterCareer(Session& session, const TransferAnswer& answer) {
    auto& character = session.character;
    // The dialog may offer an assignment by less than its whole name; the career's first one stays then.
    if (SelectCareer(session, answer.career))
        SelectAssignment(session, answer.assignment);
    character.TermsInCareer = 0;
    character.Rank = 0;
    RecordCareerServed(session, answer.career);
    AddHistory(session, "Transfer to ", answer.career, " ", answer.assignment);
}

}  // namespace

TransferOutcome TransferCareer(Session& session) {
    const auto careers = session.selection.careers;
    const auto& race = session.selection.race;
    const auto answer = session.seams.player->Transfer(
        {*careers, [&](std::string_view career) { return session.data.TransferAssignmentNames(race, career); },
         [&](std::string_view career) { return DescriptionOf(session, career); }});
    if (!answer) {
        MusterOut(session);
        return TransferOutcome::Muster;
    }
    EnterCareer(session, *answer);
    return TransferOutcome::Accepted;
}

}  // namespace korvane
