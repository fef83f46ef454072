#include "engine/education.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "character/checks.h"
#include "engine/courses.h"
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

// The subject that the player picks; empty when the player picks none.
std::string_view PickSubject(Session& session, std::string_view prompt, const Subjects& subjects) {
    session.choice.LastSkillGranted.clear();
    SelectSkillsFromList(session, 1, 1, prompt, ListItems(subjects));
    const auto* const picked = std::ranges::find(subjects, session.choice.LastSkillGranted);
    return picked == subjects.end() ? std::string_view() : *picked;
}

// Grants a subject once more, with its level digit one higher: as that adds levels, the one begun at 0 ends at 1, the
// one begun at 1 at 3.
void RaiseSubject(Session& session, std::string_view subject) {
    if (subject.empty())
        return;
    const int level = subject.back() - '0';
    GrantSkill(session, Concat(subject.substr(0, subject.size() - 1), level + 1));
}

}  // namespace

void AttendUniversity(Session& session) {
    AddHistory(session, "University: ");
    if (!IsAdmitted(session, "Edu 7+"))
        return;
    session.character.Education = kUniversity;
    const auto minor = PickSubject(session, "Select Level 0 Skill", kLevel0);
    const auto major = PickSubject(session, "Select Level 1 Skill", kLevel1);
    session.character.UniversitySubject = major;
    GrantSkill(session, "Edu +1");
    if (!Graduates(session))
        return;
    RaiseSubject(session, minor);
    RaiseSubject(session, major);
    GrantSkill(session, "Edu +2");
}

}  // namespace korvane
