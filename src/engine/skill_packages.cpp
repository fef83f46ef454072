#include "engine/skill_packages.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/paths.h"
#include "base/text.h"
#include "data/rule_row.h"
#include "skills/any_skill.h"
#include "skills/choice.h"
#include "skills/grant.h"
#include "skills/list_choice.h"

namespace korvane {

namespace {

// What a step left unpicked is the player's to settle at the table.
void LeaveOpen(Session& session, int count, std::string_view one, std::string_view several) {
    if (count > 0)
        session.character.LeftOpen.AddLine(count, " ", count == 1 ? one : several);
}

// As many different items as are wanted, each drawn of those that are left.
ListMarks DrawDifferent(Session& session, int count, int size) {
    ListMarks marks;
    for (int left = size; left > size - count; --left) {
        int skipped = session.seams.dice->Draw(left);
        std::size_t item = 0;
        while (marks[item] || skipped-- > 0)
            ++item;
        marks.set(item);
    }
    return marks;
}

// The rows of the race's list that name a skill, without those that only repeat one.
std::vector<std::string_view> BackgroundSkills(const RaceRecord& race) {
    std::vector<std::string_view> rows;
    std::vector<std::vector<std::string_view>> named;
    for (const auto row :
         std::span(race.backgroundSkills).subspan(1, static_cast<std::size_t>(race.backgroundSkillCount)))
        if (auto skills = SkillsIn(row); !skills.empty() && std::ranges::find(named, skills) == named.end()) {
            rows.push_back(row);
            named.push_back(std::move(skills));
        }
    return rows;
}

constexpr int kConnections = 2;
constexpr int kMostByConnection = 3;

std::vector<std::string_view> ConnectionSkills(const Session& session, const std::string& taken) {
    std::vector<std::string_view> skills;
    for (const auto skill : BasicSkills())
        if (skill != kJackOfAllTrades && skill != taken && MayRaiseSkill(session, skill, kMostByConnection))
            skills.push_back(skill);
    return skills;
}

// The skill of a connection; empty when the player picks none.
std::string PickConnectionSkill(Session& session, int number, const std::string& taken) {
    const auto skills = ConnectionSkills(session, taken);
    if (skills.empty())
        return {};
    if (session.Automatic())
        return std::string(skills[static_cast<std::size_t>(session.seams.dice->Draw(static_cast<int>(skills.size())))]);
    const ListItems items(skills);
    const auto marks = AskForItems(session, 1, 1, Concat("Select a skill for connection ", number), items);
    for (std::size_t i = 0; i < items.texts().size(); ++i)
        if (marks[i])
            return std::string(items.texts()[i]);
    return {};
}

// The people whom the history tells of, each once, as "Academic friend (Ally)".
std::vector<std::string> KnownPeople(const CharacterRecord& character) {
    constexpr std::array<std::string_view, 4> kKinds = {"Ally", "Contact", "Rival", "Enemy"};
    constexpr std::size_t kMostOffered = 20;
    std::vector<std::string> people;
    for (const auto& line : character.History.lines()) {
        const auto [kind, who] = SplitFirst(line, ": ");
        if (people.size() == kMostOffered || IsBlank(who) || std::ranges::find(kKinds, kind) == kKinds.end())
            continue;
        if (auto person = Concat(who, " (", kind, ")"); std::ranges::find(people, person) == people.end())
            people.push_back(std::move(person));
    }
    return people;
}

// With whom the connection is; empty when the player doesn't say.
std::string PickPartner(Session& session, std::string_view skill) {
    constexpr std::string_view kNobodyNamed = "I don't say";
    const auto people = KnownPeople(session.character);
    std::vector<std::string_view> options = {kNobodyNamed, "Another player's character"};
    options.insert(options.end(), people.begin(), people.end());
    const auto picked = Choose(session, Concat("With whom is the connection for ", skill, "?"), options).text;
    return picked == kNobodyNamed ? std::string() : std::string(picked);
}

// Whether the character has the skill at level 1 at least, in any of its specialities if the name has none.
bool HoldsSkill(const CharacterRecord& character, std::string_view name) {
    const auto speciality = Concat(name, " (");
    return std::ranges::any_of(character.Skills.all(), [&](const Skill& skill) {
        return skill.Level >= 1 && (skill.Name == name || skill.Name.starts_with(speciality));
    });
}

void GrantPackage(Session& session, const SkillPackage& package) {
    session.character.SkillPackage = package.name;
    AddHistory(session, "Skill package: ", package.name);
    for (const auto& alternatives : package.skills) {
        const auto skill =
            alternatives.size() == 1 ? alternatives.front() : Choose(session, "Select a Skill", alternatives).text;
        if (HoldsSkill(session.character, skill))
            AddHistory(session, "Skill ", skill, "=1 already held");
        else
            GrantSkill(session, Concat(skill, "=1"));
    }
}

// The packages of the data folder. A life that is told isn't lost for the want of them: what is wrong is told.
std::optional<SkillPackages> PackagesOrNotice(Session& session) {
    try {
        if (const auto& file = session.data.Packages())
            return file;
        Tell(session, Concat("No skill package: the data folder has no ", kSkillPackagesFile));
    } catch (const FileError& error) {
        // Without the folder, which is another where the life is lived again.
        const auto folder = NativePath(session.data.location()).string();
        std::string_view told = error.what();
        if (told.starts_with(folder))
            told.remove_prefix(folder.size());
        Tell(session, Concat("No skill package: ", told.substr(told.find_first_not_of("/\\"))));
    }
    return std::nullopt;
}

}  // namespace

int BackgroundSkillCount(const CharacterRecord& character) {
    return std::max(3 + character.CharacteristicDM[kEdu], 1);
}

void GrantBackgroundSkills(Session& session) {
    if (!session.hasStepsBetween)
        return;
    const ListItems items(BackgroundSkills(session.race));
    const int count = std::min(BackgroundSkillCount(session.character), items.size());
    if (count == 0)
        return;
    const auto marks = session.Automatic()
                           ? DrawDifferent(session, count, items.size())
                           : AskForItems(session, count, count, Concat("Select ", count, " background skills"), items);
    for (std::size_t i = 0; i < items.texts().size(); ++i)
        if (marks[i])
            CarryOutRow(session.race.source, items.texts()[i], [&] { TrainSkill(session, items.texts()[i]); });
    LeaveOpen(session, count - static_cast<int>(marks.count()), "background skill", "background skills");
}

void GrantConnections(Session& session) {
    if (!session.hasStepsBetween || !session.options[Option::AddSkillsForConnections])
        return;
    std::string taken;
    for (int number = 1; number <= kConnections; ++number) {
        const auto skill = PickConnectionSkill(session, number, taken);
        if (skill.empty()) {
            LeaveOpen(session, kConnections - number + 1, "skill for a connection", "skills for connections");
            return;
        }
        const auto with = PickPartner(session, skill);
        AddHistory(session, with.empty() ? "Connection" : "Connection: ", with);
        session.character.Connections.push_back({RaiseSkill(session, skill, kMostByConnection), with});
        taken = skill;
    }
}

void GrantSkillPackage(Session& session) {
    if (!session.hasStepsBetween || !session.options[Option::SelectSkillPackage])
        return;
    const auto file = PackagesOrNotice(session);
    if (file)
        NoteFile(session, file->source);
    if (!file) {
        LeaveOpen(session, 1, "skill package", "");
        return;
    }
    std::vector<std::string_view> names;
    for (const auto& package : file->packages)
        names.push_back(package.name);
    const int place = Choose(session, "Select Skill Package", names).place;
    GrantPackage(session, file->packages[static_cast<std::size_t>(place - 1)]);
}

}  // namespace korvane
