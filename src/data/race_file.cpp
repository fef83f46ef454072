#include "base/encoding.h"
#include "base/text.h"
#include "data/record_files.h"
#include "data/record_lines.h"

namespace korvane {

namespace {

void ReadCharacteristic(RecordLines& lines, RaceRecord& race, int slot) {
    const auto line = lines.Next("a characteristic, as \"Str 2\"");
    const auto i = static_cast<std::size_t>(slot);
    const auto dice = FirstCharacters(AfterCharacters(line, 4), 1);
    if (dice.size() != 1 || dice[0] < '0' || dice[0] > '9')
        lines.Reject("one digit as the dice figure, the line's fifth character",
                     dice.empty() ? "a shorter line" : Quoted(dice));
    race.characteristicName.at(i) = FirstCharacters(line, 3);
    race.characteristicDice.at(i) = dice[0] - '0';
    race.characteristicModifier.at(i) = AfterCharacters(line, 6);
}

void ReadCharacteristics(RecordLines& lines, RaceRecord& race) {
    lines.SkipHeading("the heading of the characteristics");
    race.characteristicCount = lines.NextCountUpTo(kMostCharacteristics, "the number of characteristics");
    race.characteristicCountCopy = race.characteristicCount;
    for (int i = 1; i <= race.characteristicCount; ++i)
        ReadCharacteristic(lines, race, i);
}

void ReadAges(RecordLines& lines, RaceRecord& race) {
    lines.SkipHeading("the heading of the ages");
    race.termYears = lines.NextCount(13, "the years of a term");
    race.termYearsLine = lines.Current();
    race.agingAge = lines.NextCount(6, "the age of ageing");
    race.startingAge = lines.NextCount(8, "the starting age");
}

// A heading, a count and that many lines, into the slots from 1. Gives the count.
template <typename Rows>
Count ReadCountedList(RecordLines& lines, Rows& rows, std::string_view heading, std::string_view entry) {
    lines.SkipHeading(heading);
    const auto count =
        lines.NextCountUpTo(static_cast<int>(rows.size()) - 1, Concat("the number of lines that each hold ", entry));
    lines.Fill(rows, 1, count, entry);
    return count;
}

void ReadSpecialities(RecordLines& lines, RaceRecord& race) {
    constexpr int kMostSkills = 50;
    lines.SkipHeading("the heading of the specialities");
    const auto count = lines.NextCountUpTo(kMostSkills, "the number of skills with specialities");
    for (int i = 1; i <= count; ++i) {
        const auto skill = lines.Next("a skill with specialities");
        auto list = SplitAll(lines.Next("the specialities of the skill"), '/');
        if (list.size() > kMostSpecialities)
            lines.Reject(Concat("at most ", kMostSpecialities, " specialities"), Concat(list.size()));
        race.specialities.push_back({skill, std::move(list)});
    }
}

}  // namespace

RaceRecord ReadRace(const std::shared_ptr<const TextFile>& file) {
    RecordLines lines(*file);
    RaceRecord race;
    race.source = file;
    race.name = lines.Next("the race's name");
    race.kind = lines.NextAfterLabel(5, "the race's kind");
    ReadCharacteristics(lines, race);
    ReadAges(lines, race);
    lines.SkipHeading("the heading of the life events");
    lines.Fill(race.lifeEvents, 1, 12, "a life event");
    race.backgroundSkillCount =
        ReadCountedList(lines, race.backgroundSkills, "the heading of the background skills", "a background skill");
    ReadCountedList(lines, race.preCareerOptions, "the heading of the pre-career options", "a pre-career option");
    ReadCountedList(lines, race.draftTable, "the heading of the draft table", "a draft table entry");
    ReadSpecialities(lines, race);
    ReadCountedList(lines, race.traits, "the heading of the traits", "a trait");
    return race;
}

}  // namespace korvane
