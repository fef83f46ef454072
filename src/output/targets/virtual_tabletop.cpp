#include <algorithm>
#include <vector>

#include "base/text.h"
#include "output/json_writer.h"
#include "output/life_terms.h"
#include "output/luck_line.h"
#include "output/summary_texts.h"
#include "output/svg_text.h"
#include "output/targets/targets.h"

namespace korvane::targets {

namespace {

constexpr std::string_view kNameless = "Nameless";

// An import without a name fails, and mostly in silence.
std::string NameOf(const DocumentLabels& labels) {
    const auto name = labels.name.value_or("");
    return IsBlank(name) ? std::string(kNameless) : name;
}

void AddParagraph(std::string& html, std::string_view text) {
    if (!IsBlank(text))
        AppendAll(html, "<p>", Escaped(text), "</p>");
}

template <typename Texts>
void AddItems(std::string& html, std::string_view heading, const Texts& texts) {
    if (texts.empty())
        return;
    AppendAll(html, "<h2>", heading, "</h2><ul>");
    for (const auto& text : texts)
        AppendAll(html, "<li>", Escaped(text), "</li>");
    html += "</ul>";
}

std::string MoneyText(const CharacterRecord& character) {
    const auto credits = [](auto amount) { return amount == 0 ? std::string("Cr0") : "Cr" + FormatThousands(amount); };
    return Concat("Cash ", credits(character.Cash), ", pension ", credits(character.Pension), " a year, medical debt ",
                  credits(static_cast<double>(character.MedicalDebt)));
}

// The character as a told page; all texts show as they are.
std::string Told(const Session& session, const DocumentLabels& labels) {
    const auto& character = session.character;
    std::string html;
    AddParagraph(html, Concat(Trim(session.selection.race), ", ", Trim(session.selection.career), " (",
                              Trim(session.selection.assignment), "), age ", character.Age));
    AddParagraph(html, RankLabel(character, session.assignment));
    AddItems(html, "Characteristics", CharacteristicLines(character));
    AddItems(html, "Skills", SkillLines(character, true));
    AddItems(html, "Benefits", character.Benefits.lines());
    AddParagraph(html, MoneyText(character));
    AddParagraph(html, Concat(AlliesLabel(character), ", ", ContactsLabel(character), ", ", RivalsLabel(character),
                              ", ", EnemiesLabel(character)));
    AddParagraph(html, HomeWorldText(character));
    html += "<h2>History</h2>";
    for (const auto& term : TermsOf(session)) {
        AppendAll(html, "<h3>Term ", term.number, ", age ", term.age, ", ", Escaped(Trim(term.career)), "</h3><ul>");
        for (const auto& line : term.lines)
            AppendAll(html, "<li>", Escaped(line), "</li>");
        html += "</ul>";
    }
    AddItems(html, "Still to decide", OpenPoints(character));
    if (labels.luck)
        AddParagraph(html, LuckLine(character.Luck));
    return html;
}

// A group of attributes, whose keys differ even where names don't but for marks.
class Group {
  public:
    Group(JsonWriter& json, std::string_view name) : json_(json) { json_.Key(KeyOf(name)).BeginObject(); }

    void Add(std::string_view name, std::int64_t value) {
        json_.Key(NewKey(KeyOf(name))).BeginObject();
        json_.Key("value").Number(value);
        json_.Key("label").Text(name);
        json_.Key("dtype").Text("Number");
        json_.EndObject();
    }
    void End() { json_.EndObject(); }

  private:
    std::string NewKey(const std::string& key) {
        auto wanted = key;
        for (int number = 2; std::ranges::find(keys_, wanted) != keys_.end(); ++number)
            wanted = Concat(key, "_", number);
        return keys_.emplace_back(std::move(wanted));
    }

    JsonWriter& json_;
    std::vector<std::string> keys_;
};

void AddGroup(JsonWriter& json, std::string_view label) {
    json.Key(KeyOf(label)).BeginObject();
    json.Key("label").Text(label);
    json.EndObject();
}

void AddAttributes(JsonWriter& json, const CharacterRecord& character) {
    json.Key("attributes").BeginObject();
    Group characteristics(json, "Characteristics");
    for (int i = 1; i <= character.CharacteristicCount; ++i)
        characteristics.Add(Trim(character.CharacteristicName[i]), character.Characteristic[i]);
    characteristics.End();
    Group skills(json, "Skills");
    for (const auto* const skill : character.Skills.Held())
        skills.Add(Trim(skill->Name), skill->Level);
    skills.End();
    Group standing(json, "Standing");
    standing.Add("Age", character.Age);
    standing.Add("Terms", character.TermsTotal);
    standing.Add("Rank", character.Rank);
    standing.Add("Cash", character.Cash);
    standing.Add("Pension", character.Pension);
    standing.Add("Allies", character.Allies);
    standing.Add("Contacts", character.Contacts);
    standing.Add("Rivals", character.Rivals);
    standing.Add("Enemies", character.Enemies);
    standing.End();
    json.EndObject();
}

void AddEmpty(JsonWriter& json) {
    json.Key("items").BeginArray();
    json.EndArray();
    json.Key("effects").BeginArray();
    json.EndArray();
    json.Key("flags").BeginObject();
    json.EndObject();
}

void AddResource(JsonWriter& json, std::string_view key, int most) {
    json.Key(key).BeginObject();
    json.Key("value").Number(most);
    json.Key("min").Number(0);
    json.Key("max").Number(most);
    json.EndObject();
}

// Which version of the tabletop it was made for; without it what comes is taken for far older.
void AddStats(JsonWriter& json) {
    json.Key("_stats").BeginObject();
    json.Key("coreVersion").Text("12");
    json.EndObject();
}

}  // namespace

std::string KeyOf(std::string_view name) {
    std::string key;
    for (const char character : name) {
        const auto upper = character >= 'a' && character <= 'z' ? character - 'a' + 'A' : int{character};
        const bool is_plain = (upper >= 'A' && upper <= 'Z') || (character >= '0' && character <= '9');
        const bool is_letter = static_cast<unsigned char>(character) >= 0x80;
        if (is_plain || is_letter)
            key += character;
        else if (!key.empty() && key.back() != '_')
            key += '_';
    }
    while (!key.empty() && key.back() == '_')
        key.pop_back();
    return key.empty() ? "_" : key;
}

std::string JournalEntryHead(std::string_view name) {
    std::string head;
    JsonWriter json(head);
    json.BeginObject();
    json.Key("name").Text(IsBlank(name) ? kNameless : name);
    json.Key("flags").BeginObject();
    json.EndObject();
    AddStats(json);
    json.Key("pages").BeginArray();
    return head;
}

std::string JournalEntryPage(const Session& session, const DocumentLabels& labels) {
    std::string page;
    JsonWriter json(page);
    json.BeginObject();
    json.Key("name").Text(NameOf(labels));
    json.Key("type").Text("text");
    json.Key("title").BeginObject();
    json.Key("show").Truth(true);
    json.Key("level").Number(1);
    json.EndObject();
    json.Key("text").BeginObject();
    json.Key("format").Number(1);
    json.Key("content").Text(Told(session, labels));
    json.EndObject();
    json.EndObject();
    return page;
}

std::string JournalEntryEnd() {
    return "]}\n";
}

std::string Actor(const Session& session, const DocumentLabels& labels) {
    const auto& character = session.character;
    // What a blow takes from: the three that wounds lower.
    const int hits = character.Characteristic[kStr] + character.Characteristic[kDex] + character.Characteristic[kEnd];
    std::string actor;
    JsonWriter json(actor);
    json.BeginObject();
    json.Key("name").Text(NameOf(labels));
    json.Key("type").Text("character");
    json.Key("img").Text("icons/svg/mystery-man.svg");
    json.Key("system").BeginObject();
    json.Key("biography").Text(Told(session, labels));
    AddResource(json, "health", hits);
    AddResource(json, "power", 0);
    AddAttributes(json, character);
    json.Key("groups").BeginObject();
    for (const auto* const group : {"Characteristics", "Skills", "Standing"})
        AddGroup(json, group);
    json.EndObject();
    json.EndObject();
    json.Key("prototypeToken").BeginObject();
    json.Key("name").Text(NameOf(labels));
    json.Key("actorLink").Truth(true);
    json.EndObject();
    AddEmpty(json);
    AddStats(json);
    json.EndObject();
    return actor + "\n";
}

}  // namespace korvane::targets
