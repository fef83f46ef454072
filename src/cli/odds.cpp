#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>

#include "base/encoding.h"
#include "base/error.h"
#include "base/nearest.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "output/json_writer.h"
#include "play/career_odds.h"

namespace korvane::cli {

namespace {

// Sets a characteristic as "Dex=9" says.
void Set(const CharacterRecord& character, const std::string& told, play::Applicant& applicant) {
    const auto [name, value] = SplitFirst(told, "=");
    const int slot = CharacteristicSlot(character, Trim(name));
    const auto digits = Trim(value);
    int number = -1;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (slot == 0) {
        std::vector<std::string_view> known;
        for (int i = 1; i <= character.CharacteristicCount; ++i)
            known.push_back(Trim(character.CharacteristicName[i]));
        throw UsageError(Concat("unknown characteristic ", Quoted(Trim(name)), DidYouMean(Trim(name), known)));
    }
    constexpr int kMost = 99;
    if (error != std::errc() || end != digits.data() + digits.size() || number < 0 || number > kMost)
        throw UsageError(Concat("--set ", Quoted(told), ": expected a number from 0 to ", kMost, " after \"=\""));
    applicant.characteristics[slot] = number;
}

std::string Whom(const CharacterRecord& character, const play::CareerOdds& odds) {
    auto whom = odds.applicant().race;
    for (int i = 1; i <= character.CharacteristicCount; ++i)
        AppendAll(whom, ", ", Trim(character.CharacteristicName[i]), " ", odds.applicant().characteristics[i]);
    return whom;
}

void PrintText(const CharacterRecord& character, const play::CareerOdds& odds, std::ostream& out) {
    std::vector<std::vector<std::string>> rows(1, {"Career"});
    for (const auto& column : play::CareerColumns())
        rows.front().emplace_back(column.caption);
    for (const auto& place : odds.comparison().places) {
        auto& row = rows.emplace_back();
        row.push_back(place.assignment.empty() ? place.career : Concat("  ", place.assignment));
        for (const auto& column : play::CareerColumns())
            row.push_back(CellText(place.prospects, column.figure));
    }
    std::vector<std::size_t> widths(rows.front().size());
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], CharacterCount(row[i]));
    const auto lives = odds.comparison().lives;
    const int terms = odds.comparison().terms;
    out << Whom(character, odds) << "; " << lives << (lives == 1 ? " life" : " lives") << " in each assignment, "
        << terms << (terms == 1 ? " term" : " terms") << " of service\n";
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string gap(widths[i] - CharacterCount(row[i]), ' ');
            out << (i == 0 ? row[i] + gap : "  " + gap + row[i]) << (i + 1 == row.size() ? "\n" : "");
        }
}

void AddPlace(JsonWriter& json, const play::CareerPlace& place) {
    json.BeginObject();
    json.Key("career").Text(place.career);
    if (place.assignment.empty())
        json.Key("assignment").Null();
    else
        json.Key("assignment").Text(place.assignment);
    for (const auto& column : play::CareerColumns()) {
        json.Key(column.key);
        const auto estimate = EstimateOf(place.prospects, column.figure);
        if (!estimate) {
            json.Null();
            continue;
        }
        json.BeginObject();
        json.Key("value").Raw(ShortestNumber(static_cast<float>(estimate->value)));
        json.Key("margin").Raw(ShortestNumber(static_cast<float>(estimate->margin)));
        json.EndObject();
    }
    json.Key("bestSkill").Text(place.prospects.BestSkill());
    json.EndObject();
}

void PrintJson(const CharacterRecord& character, const play::CareerOdds& odds, std::ostream& out) {
    std::string text;
    JsonWriter json(text);
    json.BeginObject();
    json.Key("race").Text(odds.applicant().race);
    json.Key("characteristics").BeginObject();
    for (int i = 1; i <= character.CharacteristicCount; ++i)
        json.Key(Trim(character.CharacteristicName[i])).Number(odds.applicant().characteristics[i]);
    json.EndObject();
    json.Key("lives").Unsigned(odds.comparison().lives);
    json.Key("terms").Number(odds.comparison().terms);
    json.Key("places").BeginArray();
    for (const auto& place : odds.comparison().places)
        AddPlace(json, place);
    json.EndArray();
    json.EndObject();
    out << text << '\n';
}

}  // namespace

int CompareCareers(const OddsCommand& command, Streams& streams) {
    Display nobody;
    Session session(DataFolder(RuleFolder(command.data), DataFolder::Reading::Once), {nullptr, nullptr, &nobody});
    LoadRaceNamed(session, command.race);
    auto applicant = play::AverageApplicant(session);
    applicant.options = command.options;
    const auto character = session.character;
    for (const auto& told : command.set)
        Set(character, told, applicant);
    play::CareerOdds odds(session, std::move(applicant), command.terms, command.career);
    const auto* const interrupted = streams.listen ? &streams.listen() : nullptr;
    odds.LiveUpTo(command.lives, [&] { return interrupted != nullptr && *interrupted; });
    if (interrupted != nullptr && *interrupted)
        return kInterrupted;
    for (const auto& place : odds.comparison().places)
        if (!place.fault.empty())
            streams.err << "korvane-cli: file error: " << place.fault << '\n';
    if (command.format == Format::Json)
        PrintJson(character, odds, streams.out);
    else
        PrintText(character, odds, streams.out);
    return kSuccess;
}

}  // namespace korvane::cli
