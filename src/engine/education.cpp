#include "engine/education.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "character/checks.h"
#include "skills/grant.h"
#include "skills/list_choice.h"

namespace korvane {

namespace {

using Subjects = std::array<std::string_view, 13>;
constexpr Subjects kLevel0 = {"Admin-0",    "Advocate-0",    "Animals (Training)-0", "Animals (Veterinary)-0",
                              "Art-0",      "Astrogation-0", "Electronics-0",        "Engineer-0",
                              "Language-0", "Medic-0",       "Navigation-0",         "Profession-0",
                              "Science-0"};
constexpr Subjects kLevel1 = {"Admin-1",    "Advocate-1",    "Animals (Training)-1", "Animals (Veterinary)-1",
                              "Art-1",      "Astrogation-1", "Electronics-1",        "Engineer-1",
                              "Language-1", "Medic-1",       "Navigation-1",         "Profession-1",
                              "Science-1"};

bool SuccessForced(const Session& session) {
    return session.options[Option::ForceAcademicSuccess];
}

int AdmissionModifier(const Session& session) {
    const auto& character = session.character;
    if (SuccessForced(session))
        return kAutomaticSuccess;
    int modifier = character.TermsTotal == 2 ? -1 : character.TermsTotal == 3 ? -2 : 0;
    if (character.Characteristic[kSoc] > 8)
        modifier += 1;
    return modifier;
}

// The subject that the player picks; empty when the player picks none.
std::string_view PickSubject(Session& session, std::string_view prompt, const Subjects& subjects) {
    session.choice.LastSkillGranted.clear();
    SelectSkillsFromList(session, 1, 1, prompt, ListItems(subjects));
    const auto* const picked = std::ranges::find(subjects, session.choice.LastSkillGranted);
    return picked == subjects.end() ? std::string_view() : *picked;
}

// Whether the course's event leaves a course to finish.
bool CompletesCourse(Session& session) {
    int completion = 1;
    RollEducationEvent(session, completion);
    return completion != 0 || SuccessForced(session);
}

// Grants a subject once more, with its level digit one higher: as that adds levels, the one begun at 0 ends at 1, the
// one begun at 1 at 3.
void RaiseSubject(Session& session, std::string_view subject) {
    if (subject.empty())
        return;
    const int level = subject.back() - '0';
    GrantSkill(session, Concat(subject.substr(0, subject.size() - 1), level + 1));
}

void WriteGraduation(Session& session, int effect) {
    const bool honours = effect > 3;
    AddHistory(session, honours ? "Graduated (Hons)" : "Graduated");
    session.character.Graduated = honours ? 2 : 1;
}

}  // namespace

void AttendUniversity(Session& session) {
    AddHistory(session, "University: ");
    if (SuccessForced(session))
        AddHistory(session, "Success forced");
    if (RollCheck(session, "Edu 7+", AdmissionModifier(session)) < 0 && !SuccessForced(session)) {
        AddHistory(session, "Rejected");
        return;
    }
    const auto minor = PickSubject(session, "Select Level 0 Skill", kLevel0);
    const auto major = PickSubject(session, "Select Level 1 Skill", kLevel1);
    session.character.UniversitySubject = major;
    GrantSkill(session, "Edu +1");
    const bool completes = CompletesCourse(session);
    const int effect = completes ? RollCheck(session, "Int 7+", 0) : -1;
    if (!completes || (effect < 0 && !SuccessForced(session))) {
        AddHistory(session, "Failed");
        return;
    }
    WriteGraduation(session, effect);
    RaiseSubject(session, minor);
    RaiseSubject(session, major);
    GrantSkill(session, "Edu +2");
}

void AttendMilitaryAcademy(Session& /*session*/) {}

}  // namespace korvane
