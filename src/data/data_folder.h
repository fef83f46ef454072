// The folder of the rule data: what races, careers and assignments there are, and their records.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/paths.h"
#include "data/name_tables.h"
#include "data/records.h"
#include "data/skill_packages.h"
#include "data/world_tables.h"

namespace korvane {

class DataFolder {
  public:
    // Whether a file is read each time it is asked for, so that an edit counts at once, or once in the life of this
    // object, as a run of many thousand characters wants it.
    enum class Reading { EachTime, Once };

    // A "\" is put to the end of the location.
    explicit DataFolder(const HeldPath& location, Reading reading = Reading::EachTime);

    const HeldPath& location() const { return location_; }

    // The names in the order of their files; shared, as they are handed around with each selection.
    using SharedNames = std::shared_ptr<const Names>;
    SharedNames RaceNames();
    SharedNames CareerNames(std::string_view race);
    // The assignments of a career as the main window lists them, and as the transfer dialog does: only what follows the
    // last "-" of the file's name.
    SharedNames AssignmentNames(std::string_view race, std::string_view career);
    SharedNames TransferAssignmentNames(std::string_view race, std::string_view career);

    // The records. Each throws FileError for a missing or malformed file. The references hold until the next call.
    const RaceRecord& Race(std::string_view race);
    const CareerFile& Career(std::string_view race, std::string_view career);
    const AssignmentRecord& Assignment(std::string_view race, std::string_view career, std::string_view assignment);

    // The tables of names and of home worlds, and the skill packages; nothing where the folder doesn't have their file.
    // Each throws FileError for a malformed file. The references hold until the next call.
    const std::optional<NameTables>& NamesOfRaces();
    const std::optional<WorldTables>& HomeWorlds();
    const std::optional<SkillPackages>& Packages();

  private:
    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };
    template <typename Value>
    using Cache = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;

    // What a file says that the folder may do without.
    template <typename Record>
    struct Optional {
        bool read = false;
        std::optional<Record> record;
    };

    template <typename Value, typename Make>
    const Value& Cached(Cache<Value>& cache, std::string_view key, const Make& make);
    template <typename Record, typename Parse>
    const std::optional<Record>& ReadIfThere(Optional<Record>& extra, std::string_view name, std::string_view role,
                                             const Parse& parse);
    std::shared_ptr<const TextFile> Read(std::string_view name, std::string_view role) const;
    // The middles of the file names that begin with `prefix` and end with `ending`, in any case.
    Names Listed(std::string_view prefix, std::string_view ending) const;

    HeldPath location_;
    Reading reading_;
    Cache<SharedNames> lists_;
    Cache<RaceRecord> races_;
    Cache<CareerFile> careers_;
    Cache<AssignmentRecord> assignments_;
    Optional<NameTables> names_;
    Optional<WorldTables> worlds_;
    Optional<SkillPackages> packages_;
};

}  // namespace korvane
