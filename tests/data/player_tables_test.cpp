// The two files that players write freely: the syllables of names and the tables of home worlds.

#include <gtest/gtest.h>

#include "base/error.h"
#include "base/text.h"
#include "data/data_folder.h"
#include "support/temp_folder.h"

namespace korvane {
namespace {

const std::string kNames =
    "# A comment\n\nTable Default\n"
    "Given start\n ba 2 \n-\nGiven middle\nri 1000\nGiven end\n- 3\nlo\n"
    "Family start\nZu\nFamily middle\n-\nFamily end\n-\n"
    "Table Wood Folk\nGiven start\nLi\nGiven middle\n-\nGiven end\n-\n"
    "Family start\n-\nFamily middle\n# none\n-\nFamily end\n-";

const std::string kWorlds =
    "Order: Size, atmosphere, hydrographics, tech level, law level, population, port\n"
    "Table Port\n7: quiet\n"
    "Table Size\n-1 to 3: small | atmosphere -2, TECH LEVEL AT MOST 9,port +3\n4 to 12: large |\n"
    "Table Atmosphere\n2 to 12: thin | port at least 4\n"
    "Table Hydrographics\n2 to 12: wet: and salty\n"
    "Table Population\n2 to 12: few\n"
    "table law level\n2 to 12: mild\n"
    "Table Tech level\n2 to 12: high\n";

std::shared_ptr<const TextFile> FileOf(const std::string& text) {
    return std::make_shared<const TextFile>("Some.dat", text);
}

// What the reader says of a text in which one part is replaced: after the file's name, or "accepted".
template <typename Read>
std::string Complaint(const Read& read, std::string text, const std::string& part, const std::string& other) {
    const auto place = text.find(part);
    EXPECT_NE(place, std::string::npos) << part;
    try {
        read(FileOf(text.replace(place, part.size(), other)));
        return "accepted";
    } catch (const FileError& error) {
        return std::string(error.what()).substr(error.file().size());
    }
}

struct Wrong {
    std::string part;
    std::string other;
    std::string complaint;  // from the line's number on
};

TEST(NameTables, SyllablesCarryTheirWeightsAndTablesServeKindNameOrAll) {
    const auto names = ReadNameTables(FileOf(kNames));
    ASSERT_EQ(names.tables.size(), 2U);
    const auto& parts = names.tables[0].parts;
    EXPECT_EQ(Concat(parts[0][0].text, parts[0][0].end, "|", parts[0][1].text, parts[0][1].end, "|", parts[1][0].end,
                     "|", parts[2][0].end, "|", parts[2][1].text, parts[2][1].end, "|", parts[3][0].text),
              "ba2|3|1000|3|lo4|Zu");
    const auto table_for = [&](std::string_view kind, std::string_view race) {
        return NameTableFor(names, kind, race).name;
    };
    EXPECT_EQ(table_for(" WOOD folk", "Elf"), "Wood Folk");
    EXPECT_EQ(table_for("Elf", "wood folk"), "Wood Folk");
    EXPECT_EQ(table_for("Elf", "Orc"), "Default");
}

TEST(NameTables, WrongLinesAreRejectedWithTheirSentence) {
    const std::string weight = ": expected a syllable and, after a blank, a weight of 1 to 1000, found \"ba ";
    for (const auto& [part, other, complaint] : std::vector<Wrong>{
             {"Table Default", "Tables Default", ":3: expected a line \"Table NAME\", found \"Tables Default\""},
             {"Table Default", "Table", ":3: expected the name of the table after \"Table\", found \"Table\""},
             {"Table Wood Folk", "Table DEFAULT", ":18: expected a table that wasn't given before, found \"Table DEF"},
             {"Table Default", "Table Elf", ":32: expected the table \"Default\", found the end of the file"},
             {kNames, "# nothing", ":2: expected the table \"Default\", found the end of the file"},
             {"Given middle", "Given end", ":7: expected the line \"Given middle\", found \"Given end\""},
             {"Given middle\nri 1000\n", "", ":7: expected the line \"Given middle\", found \"Given end\""},
             {"ri 1000\n", "", ":8: expected a syllable of \"Given middle\", or \"-\" for none, found \"Given end\""},
             {"Family end\n-\nTable", "Table", ":16: expected the line \"Family end\", found \"Table Wood Folk\""},
             {"none\n-\nFamily end\n-", "none\n-", ":30: expected the line \"Family end\", found the end of the file"},
             {"none\n-\nFamily end\n-", "none\n-\nFamily end", ":31: expected a syllable of \"Family end\""},
             {"ba 2", "ba 0", ":5" + weight + "0\""},
             {"ba 2", "ba 1001", ":5" + weight + "1001\""},
             {"ba 2", "ba 1.5", ":5" + weight + "1.5\""},
             {"ba 2", "ba be", ":5" + weight + "be\""},
             {"ba 2", "b/a", ":5: expected a syllable without \"/\", found \"b/a\""},
             {"Li", "-", ":25: expected a part of the given names of \"Wood Folk\" that always has a syllable"}})
        EXPECT_TRUE(Complaint(ReadNameTables, kNames, part, other).starts_with(complaint))
            << Complaint(ReadNameTables, kNames, part, other);
}

TEST(SkillPackages, WrongLinesAreRejectedWithTheirSentence) {
    const std::string packages = "# ours\nPackage Crew\nPilot (J-Ship) or Gunner or Admin\nPackage Other\nBroker\n";
    EXPECT_EQ(ReadSkillPackages(FileOf(packages)).packages.front().skills.front().size(), 3U);
    const std::string skill = "a skill without a level, or several joined by \" or \", found ";
    for (const auto& [part, other, complaint] :
         std::vector<Wrong>{{"Package Crew", "Crew", ":2: expected a line \"Package NAME\", found \"Crew\""},
                            {"Package Other", "package CREW",
                             ":4: expected a package that wasn't given before, found \"package CREW\""},
                            {"Package Crew", "Package A/B",
                             ":2: expected the name of the package after \"Package\", without \"/\", found"},
                            {"Broker\n", "", ":5: expected a skill of the package Other, found the end of the file"},
                            {"Broker", "Broker=1", ":5: expected " + skill + "\"Broker=1\""},
                            {"Broker", "Edu +1", ":5: expected " + skill + "\"Edu +1\""},
                            {"Broker", "Art or  or Admin", ":5: expected " + skill}})
        EXPECT_TRUE(Complaint(ReadSkillPackages, packages, part, other).starts_with(complaint))
            << Complaint(ReadSkillPackages, packages, part, other);
}

TEST(WorldTables, RowsAreReadWithTheirShiftsAndTheOrderOfTheRolls) {
    const auto worlds = ReadWorldTables(FileOf(kWorlds));
    EXPECT_EQ(worlds.order, (std::array<std::size_t, 7>{1, 2, 3, 6, 5, 4, 0}));
    auto unordered = kWorlds.substr(kWorlds.find('\n') + 1);
    unordered.replace(unordered.find(",port +3"), 8, "");
    unordered.replace(unordered.find("port at least"), 4, "tech level");
    EXPECT_EQ(ReadWorldTables(FileOf(unordered)).order, (std::array<std::size_t, 7>{0, 1, 2, 3, 4, 5, 6}));
    const auto& small = worlds.tables[1][0];
    EXPECT_EQ(Concat(small.low, " ", small.high, " ", small.text), "-1 3 small");
    std::string shifts;
    for (const auto& shift : small.shifts)
        AppendAll(shifts, shift.table, ":", static_cast<int>(shift.kind), ":", shift.amount, " ");
    EXPECT_EQ(shifts, "2:0:-2 6:2:9 0:0:3 ");
    EXPECT_EQ(worlds.tables[0][0].low + worlds.tables[0][0].high, 14);
    EXPECT_TRUE(worlds.tables[1][1].shifts.empty());
    EXPECT_EQ(worlds.tables[3][0].text, "wet: and salty");
}

TEST(WorldTables, WrongLinesAreRejectedWithTheirSentence) {
    const std::string row = " expected a row, as \"2 to 4: text\", found ";
    const std::string shifts = ":5: expected shifts, as ";
    for (const auto& [part, other, complaint] : std::vector<Wrong>{
             {"Size, ", "", ":1: expected each of the tables once, found \"Order: atm"},
             {"Size,", "Port,", ":1: expected each of the tables once, found"},
             {"port\n", "port, size\n", ":1: expected each of the tables once, found"},
             {"Size,", "Seas,", ":1: expected tables of a world, as \"size\", with \",\" between them, found"},
             {"Table Port", "Port", ":2: expected the line \"Table Port\", found \"Port\""},
             {"Table Atmosphere", "Table Air", ":7: expected the line \"Table Atmosphere\", found \"Table Air\""},
             {"7: quiet\n", "", ":3: expected a row of the table \"Port\", found \"Table Size\""},
             {"7: quiet", "quiet", ":3:" + row + "\"quiet\""},
             {"7: quiet", "7: | size -1", ":3:" + row},
             {"-1 to 3:", "-1 to:", ":5:" + row},
             {"-1 to 3:", "-1 to x:", ":5:" + row},
             {"-1 to 3:", "-100 to 3:", ":5:" + row},
             {"-1 to 3:", "4 to 3:", ":5: expected a range from the lower to the higher number"},
             {"4 to 12: large", "5 to 12: large", ":6: expected a row that begins at 4, after the row before"},
             {"4 to 12: large", "3 to 12: large", ":6: expected a row that begins at 4, after the row before"},
             {"atmosphere -2", "atmosphere 2", shifts},
             {"atmosphere -2", "atmosphere +-2", shifts},
             {"atmosphere -2", "atmosphere at least", shifts},
             {"atmosphere -2", "air -2", shifts},
             {"9,port", "9,,port", shifts},
             {"atmosphere -2", "size -2", ":5: expected shifts of tables that are rolled later, found"},
             {"port at least", "size at least", ":8: expected shifts of tables that are rolled later, found"},
             {"Table Tech level\n2 to 12: high", "", ":16: expected the line \"Table Tech level\", found the end"},
             {"12: high", "12: high\nTable Moons",
              ":17: expected nothing after the last table, found \"Table Moons\""}})
        EXPECT_TRUE(Complaint(ReadWorldTables, kWorlds, part, other).starts_with(complaint))
            << Complaint(ReadWorldTables, kWorlds, part, other);
}

TEST(DataFolder, MayLackNamesAndHomeWorldsAndReadsThemEachTimeOrOnce) {
    const test::TempFolder folder;
    DataFolder each_time(folder.held());
    DataFolder never(folder.held(), DataFolder::Reading::Once);
    DataFolder once(folder.held(), DataFolder::Reading::Once);
    EXPECT_FALSE(each_time.NamesOfRaces() || each_time.HomeWorlds() || never.NamesOfRaces() || never.HomeWorlds());
    folder.Write("NAMES.DAT", kNames);
    folder.Write("Worlds.dat", kWorlds);
    EXPECT_TRUE(each_time.NamesOfRaces() && each_time.HomeWorlds() && once.NamesOfRaces() && once.HomeWorlds());
    folder.Write("Worlds.dat", "broken");
    EXPECT_THROW(each_time.HomeWorlds(), FileError);
    EXPECT_TRUE(once.HomeWorlds() && !never.HomeWorlds());
}

}  // namespace
}  // namespace korvane
