#include "play/vocabulary.h"

#include <algorithm>

#include "base/text.h"
#include "data/master_skills.h"

namespace korvane::play {

namespace {

void AddOnce(std::vector<std::string>& names, std::string_view name) {
    if (!name.empty() && std::ranges::find(names, name) == names.end())
        names.emplace_back(name);
}

void AddCareer(Vocabulary& known, DataFolder& data, std::string_view race, const std::string& career) {
    AddOnce(known.careers, career);
    for (const auto& assignment : *data.AssignmentNames(race, career))
        AddOnce(known.assignments, assignment);
}

void AddRace(Vocabulary& known, DataFolder& data, const std::string& name) {
    AddOnce(known.races, name);
    const auto& race = data.Race(name);
    for (const auto& characteristic : race.characteristicName)
        AddOnce(known.characteristics, Trim(characteristic));
    for (const auto& row : race.specialities)
        for (const auto& speciality : row.list)
            known.specialities[std::string(row.skill)].emplace(speciality);
    for (const auto& career : *data.CareerNames(name))
        AddCareer(known, data, name, career);
}

}  // namespace

Vocabulary VocabularyOf(Session& session) {
    Vocabulary known;
    known.characteristics.emplace_back("PSI");  // of some, whatever their race
    for (const auto& line : LoadMasterSkills(session.data.location()))
        AddOnce(known.skills, Trim(SplitFirst(line, "|").first));
    for (const auto& race : *session.data.RaceNames())
        AddRace(known, session.data, race);
    return known;
}

}  // namespace korvane::play
