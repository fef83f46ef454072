#include "output/character_document.h"

#include <nlohmann/json.hpp>

#include "base/text.h"
#include "output/summary_texts.h"

namespace korvane {

namespace {

using Json = nlohmann::ordered_json;

// A number as JSON knows it, whatever its width here.
template <typename Stored, typename Wide>
Wide Number(Checked<Stored, Wide> value) {
    return value;
}

Json Texts(const TextList& list) {
    Json texts = Json::array();
    for (const auto& line : list.lines())
        texts.push_back(line);
    return texts;
}

Json Characteristics(const CharacterRecord& character) {
    Json characteristics = Json::array();
    for (int i = 1; i <= character.CharacteristicCount; ++i)
        characteristics.push_back({{"name", Trim(character.CharacteristicName[i])},
                                   {"value", Number(character.Characteristic[i])},
                                   {"modifier", Number(character.CharacteristicDM[i])}});
    return characteristics;
}

Json Skills(const CharacterRecord& character) {
    Json skills = Json::array();
    for (const auto* const skill : character.Skills.Held())
        skills.push_back({{"name", Trim(skill->Name)}, {"level", Number(skill->Level)}});
    return skills;
}

void AddStanding(Json& document, const Session& session) {
    const auto& character = session.character;
    document["age"] = Number(character.Age);
    document["termsTotal"] = Number(character.TermsTotal);
    document["termsInCareer"] = Number(character.TermsInCareer);
    document["rank"] = Number(character.Rank);
    document["rankTitle"] = Trim(RankTitle(session.assignment, character.Rank));
    document["commissioned"] = character.Commissioned == 1;
    document["graduated"] = Number(character.Graduated);
    document["allies"] = Number(character.Allies);
    document["enemies"] = Number(character.Enemies);
    document["contacts"] = Number(character.Contacts);
    document["rivals"] = Number(character.Rivals);
    document["oneShot"] = {{"qualification", Number(character.QualificationDM)},
                           {"survival", Number(character.SurvivalDM)},
                           {"commission", Number(character.CommissionDM)},
                           {"advancement", Number(character.AdvancementDM)}};
    document["paroleThreshold"] = Number(character.ParoleThreshold);
}

void AddBenefits(Json& document, const CharacterRecord& character) {
    document["musterRolls"] = Number(character.MusterRolls);
    document["benefitRollsModifier"] = Number(character.BenefitRollsModifier);
    document["musterBonusCount"] = Number(character.MusterBonusCount);
    document["cash"] = Number(character.Cash);
    document["cashRollsUsed"] = Number(character.CashRollsUsed);
    document["pension"] = Number(character.Pension);
    document["medicalDebt"] = Json::parse(ShortestNumber(character.MedicalDebt));
    document["benefits"] = Texts(character.Benefits);
    document["careersServed"] = Texts(character.CareersServed);
}

// The education, and those who helped on the way: null or an empty list for none.
void AddCompany(Json& document, const CharacterRecord& character) {
    const auto text = [](const std::string& held) { return held.empty() ? Json() : Json(held); };
    document["education"] = text(character.Education);
    document["connections"] = Json::array();
    for (const auto& connection : character.Connections)
        document["connections"].push_back({{"skill", connection.skill}, {"with", text(connection.with)}});
    document["package"] = text(character.SkillPackage);
}

}  // namespace

std::string CharacterDocument(const Session& session, const DocumentLabels& labels) {
    const auto& character = session.character;
    Json document;
    if (labels.name)
        document["name"] = *labels.name;
    if (labels.number)
        document["number"] = *labels.number;
    if (labels.seed)
        document["seed"] = *labels.seed;
    document["race"] = Trim(session.selection.race);
    document["career"] = Trim(session.selection.career);
    document["assignment"] = Trim(session.selection.assignment);
    document["homeWorld"] = HomeWorldText(character);
    document["characteristics"] = Characteristics(character);
    AddStanding(document, session);
    AddBenefits(document, character);
    document["skills"] = Skills(character);
    document["history"] = Texts(character.History);
    AddCompany(document, character);
    document["open"] = OpenPoints(character);
    // A name that isn't UTF-8, from a file system that allows it, is shown as well as can be.
    return document.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace korvane
