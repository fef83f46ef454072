#include "engine/courses.h"

#include "character/checks.h"

namespace korvane {

namespace {

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

// Whether the course's event leaves a course to finish.
bool CompletesCourse(Session& session) {
    int completion = 1;
    RollEducationEvent(session, completion);
    return completion != 0 || SuccessForced(session);
}

void WriteGraduation(Session& session, int effect) {
    const bool honours = effect > 3;
    AddHistory(session, honours ? "Graduated (Hons)" : "Graduated");
    session.character.Graduated = honours ? 2 : 1;
}

}  // namespace

bool IsAdmitted(Session& session, std::string_view check) {
    if (SuccessForced(session))
        AddHistory(session, "Success forced");
    if (RollCheck(session, check, AdmissionModifier(session)) >= 0 || SuccessForced(session))
        return true;
    AddHistory(session, "Rejected");
    return false;
}

bool Graduates(Session& session) {
    const bool completes = CompletesCourse(session);
    const int effect = completes ? RollCheck(session, "Int 7+", 0) : -1;
    if (!completes || (effect < 0 && !SuccessForced(session))) {
        AddHistory(session, "Failed");
        return false;
    }
    WriteGraduation(session, effect);
    return true;
}

}  // namespace korvane
