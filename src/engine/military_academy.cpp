#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "base/text.h"
#include "data/rule_row.h"
#include "engine/courses.h"
#include "engine/education.h"
#include "engine/enlistment.h"
#include "engine/selection.h"
#include "skills/choice.h"
#include "skills/grant.h"

namespace korvane {

namespace {

// A service that has an academy, what it asks of those who want to enter, and what every cadet hears lectures on.
struct Academy {
    std::string_view service;
    std::string_view entry;
    std::string_view subject;
};

constexpr std::array<Academy, 3> kAcademies = {{
    {"Army", "End 7+", "Tactics (Military)-1"},
    {"Marine", "Str 8+", "Tactics (Military)-1"},
    {"Navy", "Int 8+", "Tactics (Naval)-1"},
}};

// The academy of the player's choice among those whose service the race has; nothing when it has none.
const Academy* PickAcademy(Session& session) {
    std::vector<const Academy*> academies;
    std::vector<std::string_view> services;
    for (const auto& academy : kAcademies)
        if (std::ranges::find(*session.selection.careers, academy.service) != session.selection.careers->end()) {
            academies.push_back(&academy);
            services.push_back(academy.service);
        }
    if (academies.empty())
        return nullptr;
    return academies[static_cast<std::size_t>(Choose(session, "Select Military Academy", services).place - 1)];
}

// A skill of each row of the service's table at level 0; what raises a characteristic isn't taught.
void TrainCadet(Session& session, std::string_view service) {
    // The text of the rows is the file's, which stays where it is while the rows are read.
    const auto career = session.data.Career(session.selection.race, service).record;
    NoteFile(session, career.source);
    for (const auto row : std::span(career.serviceTable).subspan(1))
        CarryOutRow(career.source, row, [&] { TrainSkill(session, row); });
}

// Whether the graduate goes into the service: without a question when that is the career chosen.
bool JoinsService(Session& session, std::string_view service) {
    if (session.character.ParoleThreshold > 0)
        return false;
    if (session.selection.career == service)
        return true;
    return AskYesNo(
        session, {Concat("Enlist in the ", service, " as an officer, instead of the ", session.selection.career, "?")});
}

void ChangeToService(Session& session, std::string_view service) {
    if (session.selection.career == service || !SelectCareer(session, service))
        return;
    const auto names = session.selection.assignments;
    const std::vector<std::string_view> assignments(names->begin(), names->end());
    if (!assignments.empty())
        SelectAssignment(session, Choose(session, "Select Assignment", assignments).text);
}

}  // namespace

bool HasAcademy(std::string_view service) {
    return std::ranges::find(kAcademies, service, &Academy::service) != kAcademies.end();
}

void AttendMilitaryAcademy(Session& session) {
    const auto* const academy = PickAcademy(session);
    if (academy == nullptr) {
        AddHistory(session, "Military Academy: none");
        return;
    }
    auto& character = session.character;
    AddHistory(session, "Military Academy: ", academy->service);
    if (!IsAdmitted(session, academy->entry))
        return;
    character.Education = Concat(kMilitaryAcademy, " (", academy->service, ")");
    TrainCadet(session, academy->service);
    character.UniversitySubject = academy->subject;
    if (!Graduates(session))
        return;
    GrantSkill(session, "Edu +1");
    if (character.Graduated == 2)
        GrantSkill(session, "Soc +1");
    if (!JoinsService(session, academy->service))
        return;
    ChangeToService(session, academy->service);
    character.AcademyService = academy->service;
    character.QualificationDM = kAutomaticSuccess;
}

}  // namespace korvane
