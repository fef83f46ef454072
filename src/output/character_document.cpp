#include "output/character_document.h"

#include <optional>
#include <span>

#include "base/text.h"
#include "output/json_writer.h"
#include "output/life_terms.h"
#include "output/summary_texts.h"

namespace korvane {

namespace {

void AddLabels(JsonWriter& json, const DocumentLabels& labels) {
    if (labels.name)
        json.Key("name").Text(*labels.name);
    if (labels.number)
        json.Key("number").Unsigned(*labels.number);
    if (labels.dice && labels.dice->seed)
        json.Key("seed").Given(*labels.dice->seed);
    else if (labels.dice)
        json.Key("dice").Text("clock");
    if (labels.backs)
        json.Key("backs").Number(*labels.backs);
}

void AddCharacteristics(JsonWriter& json, const CharacterRecord& character) {
    json.Key("characteristics").BeginArray();
    for (int i = 1; i <= character.CharacteristicCount; ++i) {
        json.BeginObject();
        json.Key("name").Text(Trim(character.CharacteristicName[i]));
        json.Key("value").Number(character.Characteristic[i]);
        json.Key("modifier").Number(character.CharacteristicDM[i]);
        json.EndObject();
    }
    json.EndArray();
}

void NumberOrNull(JsonWriter& json, const std::optional<int>& held) {
    if (held)
        json.Number(*held);
    else
        json.Null();
}

void AddOrigin(JsonWriter& json, const std::optional<SkillOrigin>& origin) {
    NumberOrNull(json.Key("term"), origin ? std::optional(origin->term) : std::nullopt);
    NumberOrNull(json.Key("line"), origin ? std::optional(origin->line) : std::nullopt);
}

void AddSkills(JsonWriter& json, const CharacterRecord& character, DocumentForm form) {
    json.Key("skills").BeginArray();
    for (const auto* const skill : character.Skills.Held()) {
        json.BeginObject();
        json.Key("name").Text(Trim(skill->Name));
        json.Key("level").Number(skill->Level);
        if (form == DocumentForm::Second)
            AddOrigin(json, OriginOf(*skill, character));
        json.EndObject();
    }
    json.EndArray();
}

void AddStanding(JsonWriter& json, const Session& session) {
    const auto& character = session.character;
    json.Key("age").Number(character.Age);
    json.Key("termsTotal").Number(character.TermsTotal);
    json.Key("termsInCareer").Number(character.TermsInCareer);
    json.Key("rank").Number(character.Rank);
    json.Key("rankTitle").Text(Trim(RankTitle(session.assignment, character.Rank)));
    json.Key("commissioned").Truth(character.Commissioned == 1);
    json.Key("graduated").Number(character.Graduated);
    json.Key("allies").Number(character.Allies);
    json.Key("enemies").Number(character.Enemies);
    json.Key("contacts").Number(character.Contacts);
    json.Key("rivals").Number(character.Rivals);
    json.Key("oneShot").BeginObject();
    json.Key("qualification").Number(character.QualificationDM);
    json.Key("survival").Number(character.SurvivalDM);
    json.Key("commission").Number(character.CommissionDM);
    json.Key("advancement").Number(character.AdvancementDM);
    json.EndObject();
    json.Key("paroleThreshold").Number(character.ParoleThreshold);
}

void AddBenefits(JsonWriter& json, const CharacterRecord& character) {
    json.Key("musterRolls").Number(character.MusterRolls);
    json.Key("benefitRollsModifier").Number(character.BenefitRollsModifier);
    json.Key("musterBonusCount").Number(character.MusterBonusCount);
    json.Key("cash").Number(character.Cash);
    json.Key("cashRollsUsed").Number(character.CashRollsUsed);
    json.Key("pension").Number(character.Pension);
    json.Key("medicalDebt").Raw(ShortestNumber(character.MedicalDebt));
    json.Key("benefits").TextArray(character.Benefits.lines());
    json.Key("careersServed").TextArray(character.CareersServed.lines());
}

void TextOrNull(JsonWriter& json, const std::string& held) {
    if (held.empty())
        json.Null();
    else
        json.Text(held);
}

// The education, and those who helped on the way: null or an empty list for none.
void AddCompany(JsonWriter& json, const CharacterRecord& character) {
    TextOrNull(json.Key("education"), character.Education);
    json.Key("connections").BeginArray();
    for (const auto& connection : character.Connections) {
        json.BeginObject();
        json.Key("skill").Text(connection.skill);
        TextOrNull(json.Key("with"), connection.with);
        json.EndObject();
    }
    json.EndArray();
    TextOrNull(json.Key("package"), character.SkillPackage);
}

void AddTerms(JsonWriter& json, const Session& session) {
    json.Key("terms").BeginArray();
    for (const auto& term : TermsOf(session)) {
        json.BeginObject();
        json.Key("number").Number(term.number);
        json.Key("age").Number(term.age);
        json.Key("career").Text(Trim(term.career));
        json.Key("assignment").Text(Trim(term.assignment));
        json.Key("rank").Number(term.rank);
        json.Key("lines").TextArray(term.lines);
        json.EndObject();
    }
    json.EndArray();
}

// What the second form tells beside the first.
void AddMore(JsonWriter& json, const Session& session) {
    AddTerms(json, session);
    json.Key("homeWorldParts").BeginObject();
    for (std::size_t i = 0; i < kWorldTableNames.size(); ++i)
        if (const auto& fact = session.character.HomeWorld.at(i); !fact.empty())
            json.Key(kWorldTableNames.at(i)).Text(fact);
    json.EndObject();
    json.Key("traits").BeginArray();
    for (const auto trait : std::span(session.race.traits).subspan(1))
        if (!IsBlank(trait))
            json.Text(Trim(trait));
    json.EndArray();
    json.Key("rankTitles").BeginArray();
    for (const auto title : session.assignment.rankTitle)
        json.Text(Trim(title));
    json.EndArray();
}

void AddRoll(JsonWriter& json, const Luck::Extreme& roll) {
    json.BeginObject();
    json.Key("roll").Number(roll.luck);
    json.Key("check").Text(CheckText(roll.check));
    json.EndObject();
}

// The luckiest and the unluckiest roll are those of a life with any.
void AddLuck(JsonWriter& json, const Luck& luck) {
    json.Key("luck").BeginObject();
    json.Key("rolls").Number(luck.rolls);
    json.Key("sum").Number(luck.sum);
    json.Key("expected").Number(luck.Expected());
    if (luck.rolls > 0) {
        AddRoll(json.Key("best"), luck.best);
        AddRoll(json.Key("worst"), luck.worst);
    }
    json.EndObject();
}

}  // namespace

std::string CharacterDocument(const Session& session, const DocumentLabels& labels) {
    const auto& character = session.character;
    std::string document;
    JsonWriter json(document);
    json.BeginObject();
    if (labels.form == DocumentForm::Second)
        json.Key("version").Number(2);
    AddLabels(json, labels);
    json.Key("race").Text(Trim(session.selection.race));
    json.Key("career").Text(Trim(session.selection.career));
    json.Key("assignment").Text(Trim(session.selection.assignment));
    json.Key("homeWorld").Text(HomeWorldText(character));
    AddCharacteristics(json, character);
    AddStanding(json, session);
    AddBenefits(json, character);
    AddSkills(json, character, labels.form);
    json.Key("history").TextArray(character.History.lines());
    AddCompany(json, character);
    json.Key("open").TextArray(OpenPoints(character));
    if (labels.form == DocumentForm::Second)
        AddMore(json, session);
    if (labels.luck)
        AddLuck(json, character.Luck);
    json.EndObject();
    return document;
}

}  // namespace korvane
