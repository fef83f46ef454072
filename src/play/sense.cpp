#include "play/sense.h"

#include <algorithm>
#include <cstdint>

#include "base/text.h"
#include "skills/grant.h"

namespace korvane::play {

namespace {

// The characteristic that most rolls on a skill go with, and how often a group is glad of it.
struct SkillUse {
    std::string_view skill;
    int slot;
    int use;
};

// In the order of the alphabet.
// clang-format off
constexpr std::array<SkillUse, 39> kUses = {{
    {"Admin", kEdu, 0},            {"Advocate", kEdu, -1},        {"Animals", kInt, -2},         {"Art", kInt, -2},
    {"Astrogation", kEdu, 1},      {"Athletics", kEnd, 1},        {"Broker", kInt, 1},           {"Carouse", kSoc, -1},
    {"Deception", kInt, 1},        {"Diplomat", kSoc, 1},         {"Drive", kDex, 0},            {"Electronics", kEdu, 3},
    {"Engineer", kEdu, 2},         {"Explosives", kEdu, -2},      {"Flyer", kDex, 0},            {"Gambler", kInt, 0},
    {"Gun Combat", kDex, 4},       {"Gunner", kDex, 0},           {"Heavy Weapons", kDex, -4},   {"Investigate", kInt, 2},
    {"Jack of all Trades", 0, 5},  {"Language", kEdu, 0},         {"Leadership", kSoc, 1},       {"Mechanic", kEdu, 2},
    {"Medic", kEdu, 4},            {"Melee", kStr, 1},            {"Navigation", kInt, 0},       {"Persuade", kSoc, 3},
    {"Pilot", kDex, 4},            {"Profession", kEdu, -3},      {"Recon", kInt, 2},            {"Science", kEdu, 0},
    {"Seafarer", kDex, -5},        {"Stealth", kDex, 3},          {"Steward", kSoc, 0},          {"Streetwise", kInt, 2},
    {"Survival", kEnd, 1},         {"Tactics", kInt, 0},          {"Vacc Suit", kDex, 2},
}};

// What other gains are worth, by a word in their text; the first that fits counts.
struct Word { std::string_view word; int worth; };
constexpr std::array<Word, 9> kWords = {{
    {"Don't", 0}, {"Ally", 20}, {"Contact", 18}, {"Ship", 26}, {"Advancement", 17}, {"Promotion", 17}, {"Implant", 20}, {"Armour", 18}, {"Equipment", 16},
}};
// clang-format on

// By their first letter, where the skills stand that begin with it: few do.
constexpr auto kFirstOfLetter = [] {
    std::array<std::uint8_t, 27> places{};
    places.back() = kUses.size();
    for (std::size_t letter = 26; letter-- > 0;) {
        places.at(letter) = places.at(letter + 1);
        while (places.at(letter) > 0 &&
               kUses.at(places.at(letter) - 1U).skill.front() >= 'A' + static_cast<int>(letter))
            --places.at(letter);
    }
    return places;
}();

// The place of a skill in the list; as many as there are for what is none.
std::size_t PlaceOf(std::string_view bare) {
    const auto letter = static_cast<unsigned char>(bare.empty() ? 0 : bare.front() - 'A');
    if (letter >= 26)
        return kUses.size();
    for (auto i = kFirstOfLetter[letter]; i < kFirstOfLetter[letter + 1U]; ++i)
        if (kUses[i].skill == bare)
            return i;
    return kUses.size();
}

std::string_view BareName(std::string_view name) {
    return name.ends_with(')') ? name.substr(0, name.rfind(" (")) : name;
}

int WorthOfOther(std::string_view text) {
    constexpr int kUnknown = 10;
    if (IsBlank(text))
        return 0;
    const auto* const word = std::ranges::find_if(
        kWords, [&](const Word& known) { return text.find(known.word) != std::string_view::npos; });
    return word == kWords.end() ? kUnknown : word->worth;
}

// The speciality that a name of the skill has; empty for none and for other skills.
std::string_view SpecialityOf(std::string_view name, std::string_view skill) {
    if (name.size() < skill.size() + 3 || !name.starts_with(skill) || name[skill.size()] != ' ' ||
        name[skill.size() + 1] != '(')
        return {};
    const auto rest = name.substr(skill.size() + 2);
    return rest.substr(0, rest.find(')'));
}

}  // namespace

template <typename Action>
void Sense::ForEachRow(const Action& action) const {
    for (const auto* const table : {&session_.career.personalTable, &session_.career.serviceTable,
                                    &session_.career.advancedTable, &session_.assignment.assignmentTable})
        std::for_each(table->begin() + 1, table->end(), action);
}

void Sense::TakeStock() {
    static_assert(kUses.size() == kSkills);
    held_.fill(-1);
    for (const auto& skill : session_.character.Skills.all())
        if (const auto place = PlaceOf(BareName(skill.Name)); place < kSkills)
            held_.at(place) = std::max<int>(held_.at(place), skill.Level);
    if (career_ == session_.career.source && assignment_ == session_.assignment.source)
        return;
    career_ = session_.career.source;
    assignment_ = session_.assignment.source;
    rows_.fill(0);
    ForEachRow([&](std::string_view row) {
        if (const auto place = PlaceOf(BareName(row)); place < kSkills)
            ++rows_.at(place);
    });
}

int Sense::WorthOfRaise(std::string_view gain) const {
    constexpr int kMost = 15;
    const auto& character = session_.character;
    const int slot = CharacteristicSlot(character, FirstCharacters(gain, 3));
    if (slot == 0)
        return 0;
    const int value = character.Characteristic[slot];
    const int after = std::min<int>(value + LenientCount(AfterCharacters(gain, 5)), kMost);
    return after <= value ? 0 : 10 * (after - value) + 14 * (ModifierOf(after) - ModifierOf(value));
}

int Sense::WorthOfSkill(std::size_t skill, std::string_view name, int level, bool sets) const {
    constexpr std::array kWorthOfLevel = {10, 24, 20, 13, 6};
    constexpr int kNewSkill = 5;
    constexpr int kMostRows = 3;
    const auto& use = kUses.at(skill);
    int held = held_.at(skill);
    if (held >= 0 && name.size() != use.skill.size()) {
        const auto* const exact = session_.character.Skills.Find(name);
        held = exact == nullptr ? -1 : int{exact->Level};
    }
    const int after = sets || held < 0 ? level : held + level;
    if (after <= held || after < 0 || (session_.options[Option::CapSkillsAt4] && after > 4))
        return 0;
    const auto worth = kWorthOfLevel.at(std::min(static_cast<std::size_t>(after), kWorthOfLevel.size() - 1));
    const int fits = use.slot == 0 ? 2 : 3 * session_.character.CharacteristicDM[use.slot];
    return std::max(worth + (held < 0 ? kNewSkill : 0) + use.use + fits + 4 * std::min(rows_.at(skill), kMostRows), 1);
}

int Sense::WorthOfOne(std::string_view gain) const {
    // The mark of the level stands near the end, if there is one; a hyphen may be part of the name.
    const auto mark = gain.size() < 3 ? std::string_view::npos : gain.find_first_of("=-", gain.size() - 2);
    const auto name = gain.substr(0, mark);
    if (const auto skill = PlaceOf(BareName(name)); skill < kSkills)
        return mark == std::string_view::npos
                   ? WorthOfSkill(skill, name, 1, false)
                   : WorthOfSkill(skill, name, LenientCount(gain.substr(mark + 1)), gain[mark] == '=');
    if (gain.starts_with("DM"))
        return WorthOfOther("Advancement");
    return gain.find(" +") == std::string_view::npos ? WorthOfOther(gain) : WorthOfRaise(gain);
}

int Sense::WorthOf(std::string_view gain) const {
    const auto cut = gain.find(" or ");
    const int worth = WorthOfOne(gain.substr(0, cut));
    return cut == std::string_view::npos ? worth : std::max(worth, WorthOf(gain.substr(cut + 4)));
}

Sense::SpecialityWorth Sense::WorthOfSpecialities(std::string_view skill,
                                                  std::span<const std::string_view> specialities) const {
    constexpr int kEnough = 4;
    SpecialityWorth worth;
    worth.fill(30);
    const auto add = [&](std::string_view name, int more) {
        if (const auto speciality = SpecialityOf(name, skill); !speciality.empty())
            if (const auto place = std::ranges::find(specialities, speciality); place != specialities.end())
                worth.at(static_cast<std::size_t>(place - specialities.begin())) += more;
    };
    for (const auto& held : session_.character.Skills.all())
        add(held.Name, held.Level >= kEnough ? -20 : 20 + held.Level);
    ForEachRow([&](std::string_view row) { add(row, 10); });
    return worth;
}

int Sense::CostOfLoss(int slot, int amount) const {
    const int value = session_.character.Characteristic[slot];
    const int after = value - amount;
    return 10 * (ModifierOf(value) - ModifierOf(std::max(after, 0))) + (after <= 2 ? 20 * (3 - after) : 0) + amount;
}

}  // namespace korvane::play
