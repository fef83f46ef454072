// The data folder: its listings, reading each time or once, the master skill list, and the rule data that are shipped.

#include "data/data_folder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <regex>
#include <set>

#include "base/error.h"
#include "base/files.h"
#include "base/text.h"
#include "data/master_skills.h"
#include "support/temp_folder.h"

namespace korvane {
namespace {

std::string Repeated(const std::string& line, int times) {
    return times == 0 ? "" : line + "\r\n" + Repeated(line, times - 1);
}

TEST(DataFolder, ListsNamesInTheOrderOfTheirFiles) {
    const test::TempFolder folder;
    for (const auto* name :
         {"Elf.eri", "Elf Lord.eri", "dwarf.ERI", "Orc.eri.bak", "Elf-Army.ecf", "Elf-Army Reserve.ecf", "elf-Bard.ECF",
          "Elf Lord-Monk.ecf", "Elf Army.ecf", "Elf-Army-Support.eas", "Elf-Army-Close-In-Support.eas",
          "ELF-ARMY-Scout.eas", "Elf-Army Reserve-Cook.eas"})
        folder.Write(name, "");
    DataFolder data(Held(folder.path()));
    EXPECT_EQ(*data.RaceNames(), (Names{"Elf Lord", "Elf", "dwarf"}));
    EXPECT_EQ(*data.CareerNames("Elf"), (Names{"Army Reserve", "Army", "Bard"}));
    EXPECT_EQ(*data.CareerNames("Elf Lord"), Names{"Monk"});
    EXPECT_EQ(*data.AssignmentNames("Elf", "Army"), (Names{"Scout", "Close-In-Support", "Support"}));
    EXPECT_EQ(*data.TransferAssignmentNames("Elf", "Army"), (Names{"Scout", "Support", "Support"}));
    EXPECT_TRUE(data.AssignmentNames("Elf", "Bard")->empty());
}

TEST(DataFolder, ReadsEachTimeOrOnce) {
    const test::TempFolder folder;
    DataFolder each_time(folder.held());
    DataFolder once(folder.held(), DataFolder::Reading::Once);
    folder.Write("Elf-Army-Guard.eas", Repeated("old", 41));
    const AssignmentRecord kept = each_time.Assignment("Elf", "Army", "Guard");
    once.Assignment("Elf", "Army", "Guard");
    EXPECT_EQ(*once.AssignmentNames("Elf", "Army"), *each_time.AssignmentNames("Elf", "Army"));
    folder.Write("Elf-Army-Guard.eas", Repeated("new", 41));
    folder.Write("Elf-Army-Scout.eas", "");
    EXPECT_EQ(each_time.Assignment("Elf", "Army", "Guard").rankTitle[12], "new");
    EXPECT_EQ(once.Assignment("Elf", "Army", "Guard").rankTitle[12], "old");
    EXPECT_EQ(kept.rankTitle[12], "old") << "a copy keeps its texts";
    EXPECT_EQ(*each_time.AssignmentNames("Elf", "Army"), (Names{"Guard", "Scout"}));
    EXPECT_EQ(*once.AssignmentNames("Elf", "Army"), Names{"Guard"});
}

TEST(DataFolder, MasterSkillsAreAtMost100WholeLines) {
    const test::TempFolder folder;
    EXPECT_THROW(LoadMasterSkills(folder.held()), FileError);
    folder.Write("MasterSkills.dat", Repeated("A||B| ", 100));
    EXPECT_EQ(LoadMasterSkills(folder.held())[100], "A||B| ");
    folder.Write("MasterSkills.dat", Repeated("", 101));
    EXPECT_THROW(LoadMasterSkills(folder.held()), FileError);
}

// The rule data that are shipped, with the skills that they may name, bare and with the race's specialities.
struct ShippedRules : ::testing::Test {
    DataFolder data{HeldPath(KORVANE_RULES)};
    RaceRecord race = data.Race("Imperial Human");
    std::set<std::string, std::less<>> skills;

    ShippedRules() {
        for (const auto& line : LoadMasterSkills(data.location()))
            skills.emplace(line.empty() ? "Admin" : SplitFirst(line, "||").first);
        for (const auto& [skill, list] : race.specialities)
            for (const auto special : list)
                skills.insert(skills.contains(skill) ? Concat(skill, " (", special, ")") : "Admin");
    }
    bool IsStat(std::string_view name) const { return std::ranges::count(race.characteristicName, name) == 1; }
    void ExpectCheck(std::string_view check) const {
        EXPECT_TRUE(IsStat(FirstCharacters(check, 3)) && LenientNumber(AfterCharacters(check, 4)) > 1) << check;
        EXPECT_TRUE(CharacterPosition(check, '+') > 5 && CharacterPosition(check, '+') <= 10) << check;
    }
    bool Grants(std::string_view text) const {  // a raise of a characteristic, or a known skill with or without a level
        if (text.find('+') != std::string_view::npos)
            return text.size() == 6 && IsStat(text.substr(0, 3)) && text.substr(3, 2) == " +";
        const auto [name, level] = SplitFirst(text, text.find('=') == std::string_view::npos ? "-" : "=");
        return skills.contains(name) && (name == text || StrictCount(level) >= 0);
    }
    void ExpectRow(std::string_view row) const {
        const auto [one, other] = SplitFirst(row, " or ");
        for (const auto item : one == row ? SplitAll(row, '/') : std::vector{one, other})
            EXPECT_TRUE(Grants(item)) << row;
    }
};

TEST_F(ShippedRules, CanBePlayedFromEndToEnd) {
    Names found;
    for (const auto& name : *data.CareerNames(race.name)) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, name);
        const auto career = data.Career(race.name, name).record;
        ExpectCheck(career.qualification);
        ExpectCheck(career.skillTableTitle[3]);
        ExpectCheck(career.commission == "No" ? "Soc 8+" : Concat(career.commission, "+"));
        for (std::size_t i = 1; i <= 6; ++i) {
            EXPECT_TRUE(Grants(Concat(career.personalTable[i], "-0"))) << career.personalTable[i];
            for (const auto* table : {&career.serviceTable, &career.advancedTable, &career.officerTable})
                ExpectRow(table->at(i));
        }
        for (std::size_t i = 1; i <= 18; ++i) {
            const std::string entry(i > 12 ? career.mishapTable[i - 12] : career.eventTable[i]);
            EXPECT_TRUE(std::regex_match(entry, std::regex("[^/ ][^/]*(/[A-Z0-9 ]+)?"))) << entry;
        }
        EXPECT_NE(SplitFirst(career.eventTable[7], "/").second.find("LIFE"), std::string_view::npos);
        for (const int cover : career.medicalCover)
            EXPECT_TRUE(std::set({0, 50, 75, 100}).contains(cover)) << cover;
        for (const auto& branch : *data.AssignmentNames(race.name, name)) {
            const testing::ScopedTrace which(__FILE__, __LINE__, found.emplace_back(Concat(name, "/", branch)));
            const auto assignment = data.Assignment(race.name, name, branch);
            ExpectCheck(assignment.survival);
            ExpectCheck(assignment.advancement);
            std::for_each_n(assignment.assignmentTable.begin() + 1, 6, [&](auto row) { ExpectRow(row); });
            for (const auto bonus : assignment.rankBonus)
                ExpectRow(bonus == "-" ? "Admin" : bonus);
        }
    }
    const auto files = ListFiles(data.location());
    const auto pages = std::ranges::count_if(files, [](const auto& file) { return file.ends_with(".htm"); });
    const auto tables = Names{"Imperial Human.eri", "MasterSkills.dat", "Names.dat", "Worlds.dat"}.size();
    EXPECT_EQ(files.size() - static_cast<std::size_t>(pages),
              data.CareerNames(race.name)->size() + found.size() + tables)
        << "stray";
    Names named = {"Navy/Flight",    "Navy/Engineer Gunner",  "Army/Cavalry",
                   "Army/Support",   "Marine/Ground Assault", "Marine/Support",
                   "Scout/Explorer", "Scout/Surveyor",        "Prisoner/Inmate"};
    named.insert(named.end(), race.draftTable.begin() + 1, race.draftTable.begin() + 7);
    for (const auto& name : named)
        EXPECT_EQ(std::ranges::count(found, name), 1) << name;
}

}  // namespace
}  // namespace korvane
