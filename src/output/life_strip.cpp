#include "output/life_strip.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <span>
#include <string_view>

#include "base/text.h"
#include "data/known_names.h"
#include "engine/prison.h"

namespace korvane {

namespace {

// ---- Blocks

// What a term is called by: its career, or why it has none.
std::string_view NameOf(const StripBlock& block) {
    return block.kind == BlockKind::Unwritten ? std::string_view("no career noted") : std::string_view(block.career);
}

std::string WordsOf(const StripBlock& block, std::size_t number, int graduated) {
    auto words = Concat("Term ", number, block.to > block.from ? ", age " : ", from age ", block.from);
    if (block.to > block.from)
        AppendAll(words, " to ", block.to);
    AppendAll(words, ": ", NameOf(block));
    if (block.kind == BlockKind::Education && graduated > 0)
        AppendAll(words, graduated == 1 ? ", graduated" : ", graduated with honours");
    return words;
}

BlockKind KindOf(std::string_view career) {
    if (career.empty())
        return BlockKind::Unwritten;
    return career == kPrisoner ? BlockKind::Prison : BlockKind::Career;
}

// A block for each heading. The opening term's career is the one enlisted in by its end; a later term's the one that it
// began in.
void AddWrittenTerms(LifeStrip& strip, const std::vector<StoryLine>& story) {
    std::string career;
    for (std::size_t line = 0; line < story.size(); ++line) {
        if (story[line].kind == StoryKind::Term) {
            strip.blocks.emplace_back();
            strip.blocks.back().career = career;
            strip.blocks.back().line = line;
        }
        if (story[line].career.empty())
            continue;
        career = story[line].career;
        if (strip.blocks.size() == 1)
            strip.blocks.front().career = career;
    }
}

// The terms that began after the history was full.
void AddUnwrittenTerms(LifeStrip& strip, const CharacterRecord& character) {
    while (strip.blocks.size() < character.TermStarts.size()) {
        strip.blocks.emplace_back();
        strip.blocks.back().line = character.History.empty() ? 0 : character.History.size() - 1;
    }
}

void AddBlocks(LifeStrip& strip, const std::vector<StoryLine>& story, const CharacterRecord& character,
               const RaceRecord& race) {
    AddWrittenTerms(strip, story);
    AddUnwrittenTerms(strip, character);
    int age = race.startingAge;
    for (std::size_t i = 0; i < strip.blocks.size(); ++i) {
        auto& block = strip.blocks[i];
        block.kind = KindOf(block.career);
        if (i == 0 && !character.Education.empty()) {
            block.kind = BlockKind::Education;
            block.career = character.Education;
        }
        block.from = age;
        // The record is older than a term's beginning when the term is over.
        const bool over = i + 1 < strip.blocks.size() || character.Age > age;
        age += over ? int{race.termYears} : 0;
        block.to = age;
        block.words = WordsOf(block, i + 1, character.Graduated);
    }
    strip.firstAge = race.startingAge;
    strip.lastAge = age;
}

// ---- Marks

std::string Lower(std::string text, std::size_t count) {
    for (auto& c : std::span(text).first(std::min(count, text.size())))
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return text;
}

std::string LowerFirst(std::string_view text) {
    return Lower(std::string(text), 1);
}

// "ally" for "Ally: Business Superior", as "gained an ally: Business Superior".
std::string AssociateWords(std::string_view line) {
    const auto [who, text] = SplitFirst(line, ": ");
    if (who.size() == line.size())
        return LowerFirst(line);  // somebody who turned, or came from nowhere
    const bool vowel = who.starts_with('A') || who.starts_with('E');
    return Concat("gained ", vowel ? "an " : "a ", LowerFirst(who), text.empty() ? "" : ": ", text);
}

std::string EventWords(MarkKind kind, std::string_view line) {
    switch (kind) {
        case MarkKind::Promotion:
            return LowerFirst(Trim(line) == "Promoted to" ? "promoted" : line);
        case MarkKind::Injury:
            return Lower(std::string(SplitFirst(line, ";").first), line.size());
        case MarkKind::Prison:
            return "imprisoned";
        case MarkKind::Release:
            return line == kReleased ? "released from prison" : "escaped from prison";
        case MarkKind::Friend:
        case MarkKind::Foe:
            break;
    }
    return AssociateWords(line);
}

void AddMarks(LifeStrip& strip, const std::vector<StoryLine>& story, const CharacterRecord& character) {
    if (strip.blocks.empty())
        return;
    const auto lines = character.History.lines();
    std::size_t block = 0;
    for (std::size_t line = 0; line < story.size(); ++line) {
        if (story[line].kind == StoryKind::Term && line > strip.blocks.front().line)
            ++block;
        if (!story[line].mark)
            continue;
        const int age = strip.blocks[block].from;
        strip.marks.push_back({*story[line].mark, age, block, line,
                               Concat("Age ", age, ": ", EventWords(*story[line].mark, lines[line]))});
    }
}

// ---- Curves

// Whether age took from a characteristic: its line is "Int 7 reduced by 1" and no more.
bool AgeTookFrom(std::string_view name, const CharacterRecord& character) {
    return std::ranges::any_of(character.History.lines(), [&](std::string_view line) {
        if (!line.starts_with(name))
            return false;
        const auto [value, amount] = SplitFirst(line.substr(name.size()), " reduced by ");
        constexpr std::string_view kNumber = " -0123456789";
        return !IsBlank(value) && !amount.empty() && value.find_first_not_of(kNumber) == std::string_view::npos &&
               amount.find_first_not_of(kNumber) == std::string_view::npos;
    });
}

void AddCurves(LifeStrip& strip, const CharacterRecord& character) {
    if (strip.blocks.empty() || character.TermStarts.size() != strip.blocks.size())
        return;
    for (int slot = kStr; slot <= std::min<int>(kSoc, character.CharacteristicCount); ++slot) {
        const auto& name = character.CharacteristicName[slot];
        if (slot > kEnd && !AgeTookFrom(name, character))
            continue;
        StripCurve curve{std::string(Trim(name)), {}};
        for (const auto& start : character.TermStarts)
            curve.values.push_back(start.characteristics[slot]);
        curve.values.push_back(character.Characteristic[slot]);
        strip.curves.push_back(std::move(curve));
    }
}

// ---- The sentence

std::string Times(std::string_view what, std::ptrdiff_t count) {
    if (count == 0)
        return {};
    return count == 1   ? Concat(what, " once")
           : count == 2 ? Concat(what, " twice")
                        : Concat(what, " ", count, " times");
}

std::string Counted(std::ptrdiff_t count, std::string_view what) {
    return count == 0 ? std::string() : Concat(count, " ", what, count == 1 ? "" : "s");
}

// The texts that aren't empty, with what joins them.
std::string Joined(std::initializer_list<std::string> texts, std::string_view between) {
    std::string joined;
    for (const auto& text : texts)
        if (!text.empty())
            AppendAll(joined, joined.empty() ? "" : between, text);
    return joined;
}

// "Navy from 18 to 30, then Prisoner to 34, then Drifter".
std::string CareersInWords(const LifeStrip& strip) {
    std::string words;
    for (std::size_t first = 0, last = 0; first < strip.blocks.size(); first = last + 1) {
        const auto name = NameOf(strip.blocks[first]);
        for (last = first; last + 1 < strip.blocks.size() && NameOf(strip.blocks[last + 1]) == name;)
            ++last;
        if (first == 0)
            AppendAll(words, name, " from ", strip.firstAge);
        else
            AppendAll(words, ", then ", name);
        const bool at_end = last + 1 == strip.blocks.size();
        if (!at_end || (first == 0 && strip.lastAge > strip.firstAge))
            AppendAll(words, " to ", strip.blocks[last].to);
    }
    return words;
}

std::string CurvesInWords(const LifeStrip& strip) {
    std::string words;
    for (const auto& curve : strip.curves)
        if (const int from = curve.values.front(), to = curve.values.back(); from != to)
            AppendAll(words, words.empty() ? "" : ", ", curve.name, to < from ? " fell" : " rose", " from ", from,
                      " to ", to);
    return words;
}

std::string SentenceOf(const LifeStrip& strip) {
    std::array<std::ptrdiff_t, kMarkKinds> counts{};
    for (const auto& mark : strip.marks)
        ++counts.at(static_cast<std::size_t>(mark.kind));
    const auto count = [&](MarkKind kind) { return counts.at(static_cast<std::size_t>(kind)); };
    const auto fate = Joined({Times("promoted", count(MarkKind::Promotion)), Times("injured", count(MarkKind::Injury)),
                              Times("imprisoned", count(MarkKind::Prison))},
                             ", ");
    const auto people =
        Joined({Counted(count(MarkKind::Friend), "friend"), Counted(count(MarkKind::Foe), "foe")}, " and ");
    return Concat(
        "A life of ", strip.lastAge, " years: ",
        Joined({CareersInWords(strip), fate, people.empty() ? people : people + " gained", CurvesInWords(strip)}, "; "),
        ".");
}

}  // namespace

LifeStrip StripOf(const CharacterRecord& character, const RaceRecord& race) {
    LifeStrip strip;
    const auto story = StoryOf(character, race);
    AddBlocks(strip, story, character, race);
    AddMarks(strip, story, character);
    AddCurves(strip, character);
    strip.sentence = strip.blocks.empty() ? "A life that hasn't begun." : SentenceOf(strip);
    return strip;
}

}  // namespace korvane
