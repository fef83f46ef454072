// The data folder: its listings, reading each time or once, and the master skill list.

#include "data/data_folder.h"

#include <algorithm>
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace korvane
