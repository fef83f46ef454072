#include "data/data_folder.h"

#include "base/files.h"
#include "base/text.h"
#include "data/record_files.h"

namespace korvane {

DataFolder::DataFolder(const HeldPath& location, Reading reading)
    : location_(EnsureTrailingBackslash(location)), reading_(reading) {}

template <typename Value, typename Make>
const Value& DataFolder::Cached(Cache<Value>& cache, std::string_view key, const Make& make) {
    const auto place = cache.find(key);
    if (place == cache.end())
        return cache.emplace(key, make()).first->second;
    auto& value = place->second;  // stays where it is when making it adds others
    if (reading_ == Reading::EachTime)
        value = make();
    return value;
}

template <typename Record, typename Parse>
const std::optional<Record>& DataFolder::ReadIfThere(Optional<Record>& extra, std::string_view name,
                                                     std::string_view role, const Parse& parse) {
    if (extra.read && reading_ == Reading::Once)
        return extra.record;
    extra.record.reset();
    if (FileExists(location_ + name))
        extra.record = parse(Read(name, role));
    extra.read = true;
    return extra.record;
}

std::shared_ptr<const TextFile> DataFolder::Read(std::string_view name, std::string_view role) const {
    return std::make_shared<const TextFile>(ReadTextFile(location_ + name, role));
}

Names DataFolder::Listed(std::string_view prefix, std::string_view ending) const {
    Names middles;
    for (const auto& name : ListFiles(location_))
        if (name.size() >= prefix.size() + ending.size() && BeginsIgnoringCase(name, prefix) &&
            EndsIgnoringCase(name, ending))
            middles.push_back(name.substr(prefix.size(), name.size() - prefix.size() - ending.size()));
    return middles;
}

DataFolder::SharedNames DataFolder::RaceNames() {
    return Cached(lists_, "*.eri", [&] { return std::make_shared<const Names>(Listed("", ".eri")); });
}

DataFolder::SharedNames DataFolder::CareerNames(std::string_view race) {
    const auto prefix = Concat(race, "-");
    return Cached(lists_, Concat(prefix, "*.ecf"),
                  [&] { return std::make_shared<const Names>(Listed(prefix, ".ecf")); });
}

DataFolder::SharedNames DataFolder::AssignmentNames(std::string_view race, std::string_view career) {
    const auto prefix = Concat(race, "-", career, "-");
    return Cached(lists_, Concat(prefix, "*.eas"),
                  [&] { return std::make_shared<const Names>(Listed(prefix, ".eas")); });
}

DataFolder::SharedNames DataFolder::TransferAssignmentNames(std::string_view race, std::string_view career) {
    const auto key = Concat(race, "-", career, "-*.eas after the last");
    return Cached(lists_, key, [&] {
        Names last_parts;
        for (const auto& name : *AssignmentNames(race, career))
            last_parts.push_back(name.substr(name.rfind('-') + 1));
        return std::make_shared<const Names>(std::move(last_parts));
    });
}

const RaceRecord& DataFolder::Race(std::string_view race) {
    const auto name = Concat(race, ".eri");
    return Cached(races_, name, [&] { return ReadRace(Read(name, "a race file")); });
}

const CareerFile& DataFolder::Career(std::string_view race, std::string_view career) {
    const auto name = Concat(race, "-", career, ".ecf");
    return Cached(careers_, name, [&] { return ReadCareer(Read(name, "a career file")); });
}

const AssignmentRecord& DataFolder::Assignment(std::string_view race, std::string_view career,
                                               std::string_view assignment) {
    const auto name = Concat(race, "-", career, "-", assignment, ".eas");
    return Cached(assignments_, name, [&] { return ReadAssignment(Read(name, "an assignment file")); });
}

const std::optional<NameTables>& DataFolder::NamesOfRaces() {
    return ReadIfThere(names_, "Names.dat", "the tables of names", ReadNameTables);
}

const std::optional<WorldTables>& DataFolder::HomeWorlds() {
    return ReadIfThere(worlds_, "Worlds.dat", "the tables of home worlds", ReadWorldTables);
}

const std::optional<SkillPackages>& DataFolder::Packages() {
    return ReadIfThere(packages_, kSkillPackagesFile, "the skill packages", ReadSkillPackages);
}

}  // namespace korvane
