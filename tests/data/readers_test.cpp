// The three readers: files that they must accept, and files that they must reject, each with its sentence.

#include <gtest/gtest.h>
#include <map>

#include "base/error.h"
#include "base/text.h"
#include "data/record_files.h"

namespace korvane {
namespace {

using Edits = std::map<int, std::string_view>;  // what the line with a number says
using Texts = std::vector<std::string_view>;

// A file whose lines say their own numbers, but for the edited ones.
std::shared_ptr<const TextFile> FileOf(int lines, const Edits& edits = {}) {
    std::string bytes;
    for (int i = 1; i <= lines; ++i)
        bytes += edits.contains(i) ? Concat(edits.at(i), "\r\n") : Concat(i, "\r\n");
    return std::make_shared<const TextFile>("Some.txt", bytes);
}
// A race whose lists are as long as they may be.
std::shared_ptr<const TextFile> RaceFile(Edits edits = {}, int lines = 201) {
    edits.insert({{2, "größeWood Folk"}, {16, "Age per term:5"}, {17, "Aging:40"}, {18, "Starts: 21"}});
    edits.insert({{4, "10"}, {33, "20"}, {55, "5"}, {62, "25"}, {89, "50"}, {191, "10"}});
    for (int i = 5; i <= 14; ++i)
        edits.emplace(i, "Str 2");
    return FileOf(lines, edits);
}

// What the reader says of the file, after the file's name.
template <typename Reader>
std::string Complaint(const Reader& read, const std::shared_ptr<const TextFile>& file) {
    try {
        read(file);
        return "accepted";
    } catch (const FileError& error) {
        return std::string(error.what()).substr(file->name().size());
    }
}

template <typename Rows>
void ExpectLines(const Rows& rows, std::size_t first, std::size_t last, int line) {
    for (auto i = first; i <= last; ++i)
        EXPECT_EQ(rows.at(i), std::to_string(line++));
}

TEST(Readers, RaceTakesEachLineByItsPlace) {
    const auto race = ReadRace(RaceFile({{91, "a//b/c d"}}));
    EXPECT_EQ((Texts{race.name, race.kind, race.characteristicName[10]}), (Texts{"1", "Wood Folk", "Str"}));
    EXPECT_EQ((std::vector<int>{race.characteristicCount, race.characteristicCountCopy, race.characteristicDice[10],
                                race.termYears, race.agingAge, race.startingAge, race.backgroundSkillCount}),
              (std::vector<int>{10, 10, 2, 5, 40, 21, 20}));
    ExpectLines(race.lifeEvents, 1, 12, 20);
    ExpectLines(race.backgroundSkills, 1, 20, 34);
    ExpectLines(race.preCareerOptions, 1, 5, 56);
    ExpectLines(race.draftTable, 1, 25, 63);
    ExpectLines(race.traits, 1, 10, 192);
    EXPECT_EQ(race.specialities.at(0).list, (Texts{"a", "", "b", "c d"}));
    EXPECT_EQ((Texts{race.specialities.at(49).skill, race.specialities[49].list.at(0)}), (Texts{"188", "189"}));
    const Edits none = {{4, "0"}, {23, "0"}, {25, "0"}, {27, "0"}, {29, "0"}, {31, "1"}};
    EXPECT_EQ(ReadRace(FileOf(32, none)).traits[1], "32") << "a heading follows each count of 0";
}

TEST(Readers, CharacteristicsAndAgesAreReadByTheirColumns) {
    for (const auto* row : {"Str 2;Str;2;", "Dex=0 ;Dex;0;", "Int 2 -1;Int;2;-1", "Åsé|9é+2;Åsé;9;+2"}) {
        const auto [line, read] = SplitFirst(row, ";");
        const auto race = ReadRace(RaceFile({{5, line}}));
        const auto dice = std::to_string(race.characteristicDice[1]);
        EXPECT_EQ(Concat(race.characteristicName[1], ";", dice, ";", race.characteristicModifier[1]), read);
    }
    for (const auto* row : {"Age per term: 4 years;4", "Age per term:3.5;4", "Jahre über 999;9", ";0"}) {
        const auto part = SplitAll(row, ';');
        EXPECT_EQ(ReadRace(RaceFile({{16, part[0]}})).termYears, LenientCount(part[1])) << row;
    }
}

TEST(Readers, CareerTakesEachLineByItsPlace) {
    const Edits edits = {{2, "Qualification: Edu 7+"}, {5, "1 500 credits"}, {6, "2500.5"},
                         {69, "4-7: 62.5%"},           {70, "8-11:75"},      {71, "12-20:100"}};
    const auto career = ReadCareer(FileOf(71, edits)).record;
    EXPECT_EQ((Texts{career.description, career.qualification}), (Texts{"1", " Edu 7+"}));
    EXPECT_EQ(career.cashBenefit, (std::array<float, 8>{0, 1500, 2500.5F, 7, 8, 9, 10, 11}));
    EXPECT_EQ(career.medicalCover, (std::array<Count, 4>{0, 62, 75, 100}));
    ExpectLines(career.otherBenefit, 1, 7, 13);
    int first = 14;
    for (const auto* table : {&career.personalTable, &career.serviceTable, &career.advancedTable, &career.officerTable,
                              &career.mishapTable})
        ExpectLines(*table, 1, 6, first += 7);
    ExpectLines(career.eventTable, 1, 12, 56);
    for (const auto* row : {"No;No", "no;no", "No.;No.", "Söc 10+;Söc 1", ";"}) {
        const auto part = SplitAll(row, ';');
        const auto line = Concat("Commission:", part[0]);
        EXPECT_EQ(ReadCareer(FileOf(71, {{3, line}})).record.commission, part[1]);
    }
}

TEST(Readers, TableTitleStaysOnlyWhereTheLineEndsInItsFirstBracket) {
    for (const auto* row : {"[Skills]Edu 8+;Edu 8+", "[Skills];kept", "[A]b];b]", "Edu 7+;Edu 7+", ";"}) {
        CareerRecord career;
        ReplaceCareer(career, ReadCareer(FileOf(71, {{34, "[Skills]kept"}})));
        ReplaceCareer(career, ReadCareer(FileOf(71, {{1, "new"}, {20, "[Skills]"}, {34, SplitAll(row, ';')[0]}})));
        const auto& title = career.skillTableTitle;
        EXPECT_EQ((Texts{career.description, title[1], title[2], title[4]}), (Texts{"new", "20", "27", "41"}));
        EXPECT_EQ(title[3], SplitAll(row, ';')[1]);
    }
}

TEST(Readers, AssignmentTakesEachLineByItsPlace) {
    const auto job = ReadAssignment(FileOf(41, {{3, "Survive:End 6+"}, {4, "Aufwärts Edu 7+"}}));
    EXPECT_EQ((Texts{job.assignmentDescription, job.survival, job.advancement}), (Texts{"1", "End 6+", " Edu 7+"}));
    ExpectLines(job.assignmentTable, 1, 6, 6);
    ExpectLines(job.rankTitle, 0, 6, 13);
    ExpectLines(job.rankBonus, 0, 6, 21);
    ExpectLines(job.rankTitle, 7, 12, 29);
    ExpectLines(job.rankBonus, 7, 12, 36);
}

TEST(Readers, WrongLinesAreRejectedWithTheirSentence) {
    for (const auto* wrong :  // a career or a race, the line, what it says, what was expected, what was found
         {"race|4|11|at most 10|11", "race|33|21|at most 20|21", "race|55|6|at most 5|6", "race|62|26|at most 25|26",
          "race|89|51|at most 50|51", "race|191|11|at most 10|11", "race|5|Str x|one digit|\"x\"",
          "race|6|Dex é|one digit|\"é\"", "race|14|Dex|one digit|a shorter line",
          "race|189|/////////////////////////|at most 25 specialities|26",
          "race|17|Aging:40000|age|the number \"40000\", which is out of range",
          "race|33|1E999|background|the number \"1E999\", which is out of range",
          "career|70|8-11: -4E4|medical|the number \" -4E4\", which is out of range",
          "career|8|1E39|cash|the number \"1E39\", which is out of range"}) {
        const auto part = SplitAll(wrong, '|');
        const Edits edits = {{LenientCount(part[1]), part[2]}};
        const auto file = part[0] == "race" ? RaceFile(edits) : FileOf(71, edits);
        const auto said = part[0] == "race" ? Complaint(ReadRace, file) : Complaint(ReadCareer, file);
        EXPECT_TRUE(said.starts_with(Concat(":", part[1], ": expected "))) << said;
        EXPECT_LT(said.find(part[3]), said.find(Concat(", found ", part[4]))) << said;
    }
}

TEST(Readers, FilesMayBeLongerButNotShorter) {
    for (int lines = 0; lines <= 202; ++lines)
        for (const auto& [whole, said] : {std::pair(201, Complaint(ReadRace, RaceFile({}, lines))),
                                          std::pair(71, Complaint(ReadCareer, FileOf(lines))),
                                          std::pair(41, Complaint(ReadAssignment, FileOf(lines)))}) {
            EXPECT_EQ(said == "accepted", lines >= whole) << said;
            EXPECT_EQ(said.starts_with(Concat(":", lines + 1, ": expected ")), lines < whole) << said;
            EXPECT_EQ(said.ends_with(", found the end of the file"), lines < whole) << said;
        }
}

}  // namespace
}  // namespace korvane
