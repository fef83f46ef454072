#include "web/told.h"

#include <array>
#include <span>
#include <string_view>

#include "base/text.h"
#include "data/known_names.h"
#include "engine/selection.h"
#include "output/life_strip.h"
#include "output/luck_line.h"
#include "output/page_export.h"
#include "output/story.h"
#include "output/strip_svg.h"
#include "output/summary_texts.h"

namespace korvane::web {

namespace {

// In the order of the kinds; the page's styles are called so.
constexpr std::array<std::string_view, 8> kStoryKinds = {"note", "term",      "prose",  "gain",
                                                         "loss", "promotion", "injury", "prison"};

void WriteHistory(JsonWriter& json, const Session& session) {
    const auto& character = session.character;
    const auto story = StoryOf(character, session.race);
    const auto lines = character.History.lines();
    json.Key("history").BeginArray();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        json.BeginObject();
        json.Key("text").Text(story[i].heading.empty() ? std::string_view(lines[i]) : story[i].heading);
        json.Key("kind").Text(kStoryKinds.at(static_cast<std::size_t>(story[i].kind)));
        json.EndObject();
    }
    json.EndArray();
}

void WriteStrip(JsonWriter& json, const Session& session) {
    constexpr double kWidth = 640;
    constexpr double kHeight = 150;
    const auto strip = StripOf(session.character, session.race);
    if (strip.blocks.empty())
        return;
    auto look = PageLook();
    look.width = kWidth;
    look.height = kHeight;
    look.scales = true;
    json.Key("strip").Text(DrawStrip(strip, look).svg);
    json.Key("sentence").Text(strip.sentence);
}

void WriteCareersOf(JsonWriter& json, Session& session, const std::string& race) {
    json.Key("careers").BeginArray();
    for (const auto& career : *session.data.CareerNames(race)) {
        json.BeginObject();
        json.Key("name").Text(career);
        json.Key("chosen").Truth(career != kPrisoner);  // nobody chooses prison
        json.Key("description").Text(session.data.Career(race, career).record.description);
        json.Key("assignments").BeginArray();
        for (const auto& assignment : *session.data.AssignmentNames(race, career)) {
            json.BeginObject();
            json.Key("name").Text(assignment);
            json.Key("description").Text(session.data.Assignment(race, career, assignment).assignmentDescription);
            json.EndObject();
        }
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
}

}  // namespace

void WriteLife(JsonWriter& json, const Session& session) {
    const auto& character = session.character;
    json.Key("race").Text(Trim(session.selection.race));
    json.Key("career").Text(Trim(session.selection.career));
    json.Key("assignment").Text(Trim(session.selection.assignment));
    json.Key("age").Text(AgeLabel(character));
    json.Key("rank").Text(RankLabel(character, session.assignment));
    json.Key("characteristics").BeginArray();
    for (int i = 1; i <= character.CharacteristicCount; ++i) {
        json.BeginArray();
        json.Text(Trim(character.CharacteristicName[i]));
        json.Number(character.Characteristic[i]);
        json.Text(SignedNumber(character.CharacteristicDM[i]));
        json.EndArray();
    }
    json.EndArray();
    json.Key("skills").TextArray(SkillLines(character, session.options[Option::SortSkillsByValue]));
    json.Key("details").TextArray(DetailLines(character));
    json.Key("associates")
        .TextArray(std::array{AlliesLabel(character), ContactsLabel(character), RivalsLabel(character),
                              EnemiesLabel(character), MedicalDebtLabel(character)});
    json.Key("homeWorld").Text(HomeWorldText(character));
    json.Key("open").TextArray(OpenPoints(character));
    json.Key("luck").Text(LuckLine(character.Luck));
    WriteHistory(json, session);
    WriteStrip(json, session);
}

void WriteRules(JsonWriter& json, Session& session) {
    json.Key("races").BeginArray();
    for (const auto& race : *session.data.RaceNames()) {
        json.BeginObject();
        json.Key("name").Text(race);
        json.Key("traits").BeginArray();
        for (const auto trait : std::span(session.data.Race(race).traits).subspan(1))
            if (!IsBlank(trait))
                json.Text(trait);
        json.EndArray();
        WriteCareersOf(json, session, race);
        json.EndObject();
    }
    json.EndArray();
    // What is offered first.
    json.Key("race").Text(FirstRace(*session.data.RaceNames()));
    json.Key("method").Text(CaptionOf(RollingMethod::True2D));
    json.Key("methods").TextArray(kMethodCaptions);
    json.Key("options").BeginArray();
    for (std::size_t i = 0; i < kOptionCaptions.size(); ++i) {
        json.BeginArray();
        json.Text(kOptionCaptions.at(i));
        json.Text(kOptionExplanations.at(i));
        json.EndArray();
    }
    json.EndArray();
    json.Key("templates").TextArray(TemplateNames(session.data.location()));
}

void WriteOdds(JsonWriter& json, const play::OddsTable& table) {
    json.Key("columns").TextArray(table.columns);
    json.Key("meanings").TextArray(table.meanings);
    json.Key("rows").BeginArray();
    for (const auto& row : table.rows) {
        json.BeginObject();
        json.Key("caption").Text(row.caption);
        json.Key("cells").TextArray(row.cells);
        json.Key("sentence").Text(row.sentence);
        json.EndObject();
    }
    json.EndArray();
    json.Key("judgements").TextArray(table.judgements);
    json.Key("note").Text(table.note);
    json.Key("lives").Unsigned(table.lives);
}

void WriteCareers(JsonWriter& json, const play::CareerOdds& odds) {
    json.Key("columns").BeginArray();
    for (const auto& column : play::CareerColumns()) {
        json.BeginArray();
        json.Text(column.caption);
        json.Text(column.meaning);
        json.EndArray();
    }
    json.EndArray();
    const auto& comparison = odds.comparison();
    json.Key("places").BeginArray();
    for (const auto& place : comparison.places) {
        json.BeginObject();
        json.Key("career").Text(place.career);
        json.Key("assignment").Text(place.assignment);
        json.Key("fault").Text(place.fault);
        json.Key("cells").BeginArray();
        for (const auto& column : play::CareerColumns())
            json.Text(play::CellText(place.prospects, column.figure));
        json.EndArray();
        json.Key("means").BeginArray();  // what a column is sorted by
        for (const auto& column : play::CareerColumns()) {
            const auto estimate = play::EstimateOf(place.prospects, column.figure);
            if (estimate)
                json.Raw(ShortestNumber(static_cast<float>(estimate->value)));
            else
                json.Null();
        }
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
    json.Key("lives").Unsigned(comparison.lives);
    json.Key("terms").Number(comparison.terms);
}

}  // namespace korvane::web
