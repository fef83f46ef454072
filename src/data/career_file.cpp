#include <cmath>
#include <cstdint>
#include <limits>

#include "base/encoding.h"
#include "base/text.h"
#include "data/record_files.h"
#include "data/record_lines.h"

namespace korvane {

namespace {

// A title stands after the first "]" of its line, or is the whole line; a line that ends in that "]" gives none.
void ReadTitle(RecordLines& lines, CareerFile& career, std::size_t table) {
    const auto line = lines.Next("the title of a skill table");
    const auto bracket = line.find(']');
    career.keepsTitle.at(table) = bracket != std::string_view::npos && bracket + 1 == line.size();
    career.record.skillTableTitle.at(table) = bracket == std::string_view::npos ? line : line.substr(bracket + 1);
}

void ReadSkillTable(RecordLines& lines, CareerFile& career, std::size_t table, SixRows& rows) {
    ReadTitle(lines, career, table);
    lines.Fill(rows, 1, 6, "a row of a skill table");
}

float ReadCash(RecordLines& lines) {
    constexpr double kMostCash = std::numeric_limits<std::int32_t>::max();
    const auto line = lines.Next("a cash benefit");
    const double cash = LenientNumber(line);
    if (std::abs(cash) > kMostCash)
        lines.Reject("a cash benefit", Concat("the number ", Quoted(line), ", which is out of range"));
    return static_cast<float>(cash);
}

void ReadBenefits(RecordLines& lines, CareerRecord& career) {
    lines.SkipHeading("the heading of the cash benefits");
    for (std::size_t i = 1; i <= 7; ++i) {
        career.cashBenefit.at(i) = ReadCash(lines);
        career.cashLine.at(i) = lines.Current();
    }
    lines.SkipHeading("the heading of the other benefits");
    lines.Fill(career.otherBenefit, 1, 7, "a benefit");
}

void ReadHazards(RecordLines& lines, CareerRecord& career) {
    lines.SkipHeading("the heading of the mishaps");
    lines.Fill(career.mishapTable, 1, 6, "a mishap");
    lines.SkipHeading("the heading of the events");
    lines.Fill(career.eventTable, 1, 12, "an event");
    lines.SkipHeading("the heading of the medical cover");
    career.medicalCover[1] = lines.NextCount(5, "the medical cover for 4 to 7");
    career.medicalCover[2] = lines.NextCount(5, "the medical cover for 8 to 11");
    career.medicalCover[3] = lines.NextCount(6, "the medical cover for 12 to 20");
}

}  // namespace

CareerFile ReadCareer(const std::shared_ptr<const TextFile>& file) {
    RecordLines lines(*file);
    CareerFile career;
    auto& record = career.record;
    record.source = file;
    record.description = lines.Next("the career's description");
    record.qualification = lines.NextAfterLabel(14, "the qualification check");
    record.commission = FirstCharacters(lines.NextAfterLabel(11, "the commission check"), 5);
    ReadBenefits(lines, record);
    ReadSkillTable(lines, career, 1, record.personalTable);
    ReadSkillTable(lines, career, 2, record.serviceTable);
    ReadSkillTable(lines, career, 3, record.advancedTable);
    ReadSkillTable(lines, career, 4, record.officerTable);
    ReadHazards(lines, record);
    return career;
}

void ReplaceCareer(CareerRecord& career, const CareerFile& file) {
    std::array<std::string, 5> kept;
    for (std::size_t i = 0; i < kept.size(); ++i)
        if (file.keepsTitle.at(i))
            kept.at(i) = career.skillTableTitle.at(i);
    career = file.record;
    for (std::size_t i = 0; i < kept.size(); ++i)
        if (file.keepsTitle.at(i))
            career.skillTableTitle.at(i) = kept.at(i);
}

}  // namespace korvane
