#include "engine/enlistment.h"

#include <array>
#include <string>

#include "character/checks.h"
#include "data/known_names.h"
#include "data/rule_row.h"
#include "engine/selection.h"
#include "skills/choice.h"

namespace korvane {

namespace {

// A service of the draft: its assignment, or the question that decides it.
struct DraftService {
    std::string_view career;
    std::string_view question;  // empty: nothing is asked
    std::array<std::string_view, 3> assignments;
};

// The die decides by this table; what the race's own says of it is only written.
// clang-format off
constexpr std::array<DraftService, 7> kDraft = {{
    {},
    {"Navy",     "Pick Naval Assignment for Draft",  {"Engineer Gunner", "Flight", "Line Crew"}},
    {"Army",     "Pick Army Assignment for Draft",   {"Cavalry", "Infantry", "Support"}},
    {"Marine",   "Pick Marine Assignment for Draft", {"Ground Assault", "Star Marine", "Support"}},
    {"Merchant", "",                                 {"Merchant Marine"}},
    {"Scout",    "Pick Scout Assignment for Draft",  {"Courier", "Explorer", "Surveyor"}},
    {"Agent",    "",                                 {"Law Enforcement"}},
}};
// clang-format on

std::string_view DraftedAssignment(Session& session, const DraftService& service) {
    return service.question.empty() ? service.assignments.front()
                                    : Choose(session, service.question, service.assignments).text;
}

// A human of the Imperium with a title is never refused by the nobility.
bool IsEntitledNoble(const Session& session) {
    constexpr int kGentle = 9;
    return session.selection.assignment == kNoble && session.selection.race == kImperialHuman &&
           session.character.Characteristic[kSoc] > kGentle;
}

}  // namespace

void Qualify(Session& session) {
    auto& modifier = session.character.QualificationDM;
    if (IsEntitledNoble(session))
        modifier = kAutomaticSuccess;
    AddHistory(session, "Enlist ", session.selection.career, " ", session.selection.assignment);
    const auto& career = session.career;
    const int effect = CarryOutRow(career.source, career.qualification,
                                   [&] { return RollCheck(session, career.qualification, modifier); });
    modifier = 0;
    if (effect < 0)
        Draft(session);
}

void Draft(Session& session) {
    AddHistory(session, "Rejected; Draft");
    const auto die = static_cast<std::size_t>(Roll(session, 1, 6));
    const auto& service = kDraft.at(die);
    const auto assignment = DraftedAssignment(session, service);
    if (SelectCareer(session, service.career))
        AddHistory(session, "Drafted to ", session.race.draftTable.at(die));
    SelectAssignment(session, assignment);
}

void RecordCareerServed(Session& session, std::string_view career) {
    auto& served = session.character.CareersServed;
    if (career == kDrifter || career == kPrisoner || career.empty() || served.size() == kMostCareersServed)
        return;
    served.Add(career);
}

}  // namespace korvane
