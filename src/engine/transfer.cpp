#include "engine/transfer.h"

#include "engine/enlistment.h"
#include "engine/mustering_out.h"
#include "engine/selection.h"

namespace korvane {

namespace {

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
    const auto answer =
        session.seams.player->Transfer({*careers, [&session](std::string_view career) {
                                            return session.data.TransferAssignmentNames(session.selection.race, career);
                                        }});
    if (!answer) {
        MusterOut(session);
        return TransferOutcome::Muster;
    }
    EnterCareer(session, *answer);
    return TransferOutcome::Accepted;
}

}  // namespace korvane
