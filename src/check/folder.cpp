#include "check/folder.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <tuple>

#include "base/error.h"
#include "base/files.h"
#include "base/text.h"
#include "check/files.h"
#include "data/data_folder.h"
#include "data/master_skills.h"
#include "data/record_files.h"
#include "output/page_export.h"

namespace korvane::check {

namespace {

using File = std::shared_ptr<const TextFile>;

// A race of the folder with its files.
struct Race {
    std::string name;
    File file;
    Known known;
};

class Folder {
  public:
    explicit Folder(const HeldPath& path)
        : path_(EnsureTrailingBackslash(path)), data_(path_), names_(ListFiles(path_)) {}

    std::vector<Finding> Check() {
        CheckCases();
        CheckExtras();
        for (const auto& name : *data_.RaceNames())
            if (auto file = TryToOpen(name + ".eri"))
                races_.push_back({name, std::move(file), {}});
        for (auto& race : races_)
            CheckRace(race);
        CheckUnseen();
        CheckTemplates();
        JoinCommon();
        std::ranges::stable_sort(findings_, {}, [](const Finding& finding) {
            return std::tuple(finding.file, finding.line, finding.column);
        });
        return std::move(findings_);
    }

  private:
    Report ReportOf(const std::string& file) { return {file, findings_}; }
    File Read(const std::string& name) const {
        return std::make_shared<const TextFile>(ReadTextFile(path_ + name, "rule data"));
    }

    // The file; nothing, which is told, where the system refuses it.
    File TryToOpen(const std::string& name) {
        seen_.push_back(Upper(name));
        try {
            return Read(name);
        } catch (const IoError& error) {
            const std::string_view told = error.what();
            ReportOf(name).Add("unreadable", 1, 1, std::string(told.substr(told.rfind("can't"))));
            return nullptr;
        }
    }

    void CheckCases() {
        std::map<std::string, std::string> seen;
        for (const auto& name : names_)
            if (const auto [place, is_new] = seen.emplace(Upper(name), name); !is_new)
                ReportOf(name).Add("case", 1, 1,
                                   Concat("\"", place->second, "\" differs from it in the case of letters alone"));
    }

    // The files that stand beside races and careers. The master list comes first: it says which skills there are.
    void CheckExtras() {
        if (FileExists(path_ + "MasterSkills.dat")) {
            master_ = Read("MasterSkills.dat");
            auto report = ReportOf("MasterSkills.dat");
            CheckMasterSkills(report, *master_);
            for (int line = 1; line <= master_->lines(); ++line)
                skills_.push_back(Trim(SplitFirst(master_->line(line), "|").first));
            TryToRead("MasterSkills.dat", [&] { LoadMasterSkills(path_); });
        }
        TryToRead("Names.dat", [&] { data_.NamesOfRaces(); });
        TryToRead("Worlds.dat", [&] { data_.HomeWorlds(); });
        TryToRead(std::string(kSkillPackagesFile), [&] { CheckPackages(); });
    }

    void CheckPackages() {
        const auto& packages = data_.Packages();
        if (!packages || skills_.empty())
            return;
        auto report = ReportOf(std::string(kSkillPackagesFile));
        for (const auto& package : packages->packages)
            for (const auto& alternatives : package.skills)
                for (const auto skill : alternatives) {
                    const auto bare = SplitFirst(skill, " (").first;
                    const int line = packages->source->LineOf(skill);
                    if (std::ranges::find(skills_, bare) == skills_.end())
                        Add(report, "skill-unknown", {line, packages->source->line(line), skill},
                            Concat("there is no skill \"", bare, "\"", DidYouMean(bare, skills_)));
                }
    }

    // What the program's own reader says of a file, unless something was found in it already.
    template <typename Read>
    void TryToRead(const std::string& name, const Read& read) {
        try {
            read();
        } catch (const ParseError& error) {
            if (IsTold(name))
                return;
            const std::string_view told = error.what();
            ReportOf(name).Add("unreadable", error.line(), 1,
                               std::string(told.substr(std::min(told.find("expected"), told.size()))));
        }
    }

    void CheckRace(Race& race) {
        race.known = KnownOf(*race.file, skills_);
        const auto careers = data_.CareerNames(race.name);
        auto report = ReportOf(race.name + ".eri");
        if (careers->empty())
            report.Add("careers-missing", 1, 1,
                       Concat("the race has no career: there is no file \"", race.name, "-CAREER.ecf\""));
        CheckRaceFile(report, *race.file, race.known, *careers);
        TryToRead(race.name + ".eri", [&] { ReadRace(race.file); });
        race.known.trusted = !report.HasAny();
        for (const auto& career : *careers)
            CheckCareer(race, career);
    }

    void CheckCareer(const Race& race, const std::string& career) {
        const auto name = Concat(race.name, "-", career, ".ecf");
        const auto file = TryToOpen(name);
        if (!file)
            return;
        auto report = ReportOf(name);
        CheckCareerFile(report, *file, race.known, career);
        TryToRead(name, [&] { ReadCareer(file); });
        const auto assignments = data_.AssignmentNames(race.name, career);
        if (assignments->empty())
            report.Add("assignments-missing", 1, 1,
                       Concat("the career has no assignment: there is no file \"", race.name, "-", career,
                              "-ASSIGNMENT.eas\""));
        for (const auto& assignment : *assignments)
            CheckAssignment(race, Concat(race.name, "-", career, "-", assignment, ".eas"));
    }

    void CheckAssignment(const Race& race, const std::string& name) {
        const auto file = TryToOpen(name);
        if (!file)
            return;
        auto report = ReportOf(name);
        CheckAssignmentFile(report, *file, race.known);
        TryToRead(name, [&] { ReadAssignment(file); });
    }

    void CheckUnseen() {
        for (const auto& name : names_) {
            const bool is_rules = EndsIgnoringCase(name, ".ecf") || EndsIgnoringCase(name, ".eas");
            if (is_rules && std::ranges::find(seen_, Upper(name)) == seen_.end() && !IsTold(name))
                ReportOf(name).Add("file-unseen", 1, 1,
                                   Concat("no race or career is called as this file begins", DidYouMeanFile(name)));
        }
    }
    // A name that many rows have wrong is told once: the mistake is likely where it is declared.
    void JoinCommon() {
        constexpr int kMany = 10;
        std::map<std::string, int> counts;
        for (const auto& finding : findings_)
            if (finding.kind->code == "skill-unknown" || finding.kind->code == "speciality")
                ++counts[finding.message];
        std::set<std::string> told;
        std::erase_if(findings_, [&](Finding& finding) {
            const auto count = counts.find(finding.message);
            if (count == counts.end() || count->second <= kMany)
                return false;
            const bool is_first = told.insert(finding.message).second;
            if (is_first)
                AppendAll(finding.message, " (in ", count->second, " rows)");
            return !is_first;
        });
    }

    // Whether something of the file was told already.
    bool IsTold(const std::string& name) const {
        return std::ranges::any_of(findings_, [&](const Finding& finding) { return finding.file == name; });
    }
    std::string DidYouMeanFile(const std::string& name) const {
        std::vector<std::string> beginnings;
        for (const auto& race : races_) {
            beginnings.push_back(race.name);
        }
        const std::vector<std::string_view> known(beginnings.begin(), beginnings.end());
        return DidYouMean(name.substr(0, name.find('-')), known);
    }

    void CheckTemplates() {
        if (IsTold("MasterSkills.dat"))
            return;  // its tags may be missing for that alone
        Session session(DataFolder(path_), {});
        if (master_)
            TryToRead("MasterSkills.dat", [&] { session.masterSkills = LoadMasterSkills(path_); });
        const auto tags = TagsOfPages(session.masterSkills);
        const std::vector<std::string_view> known(tags.begin(), tags.end());
        for (const auto& name : TemplateNames(path_)) {
            auto report = ReportOf(name);
            if (const auto file = TryToOpen(name))
                CheckTemplate(report, *file, known);
        }
    }

    HeldPath path_;
    DataFolder data_;
    Names names_;
    File master_;
    std::vector<std::string_view> skills_;
    std::vector<Race> races_;
    Names seen_;
    std::vector<Finding> findings_;
};

}  // namespace

std::vector<Finding> CheckFolder(const HeldPath& folder) {
    std::error_code error;
    const auto path = NativePath(folder);
    if (!std::filesystem::is_directory(path, error))
        throw IoError(path.string(), "can't be checked", "there is no such folder");
    return Folder(folder).Check();
}

}  // namespace korvane::check
