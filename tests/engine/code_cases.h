// Cases of what an event does, told in a line each, and the fixture that plays them: with a player who is asked and,
// where every question is answered with Yes, in automatic mode too.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/codes/effects.h"
#include "engine/hazards.h"
#include "support/world.h"

namespace korvane::test {

// Stands where automatic mode draws the next answer; without it the answers come before all other dice.
inline constexpr Die kAnswer{-1, 0, 0};
inline constexpr auto kPrisonNotice =
    "You have been imprisoned. Terms will be served until you make your parole roll or die of old age";

// clang-format off
inline const std::vector<std::pair<std::string_view, codes::Field>> kNumbers = {
    {"Slots",         &CharacterNumbers::CharacteristicCount}, {"Age",           &CharacterNumbers::Age},
    {"Terms",         &CharacterNumbers::TermsTotal},          {"CareerTerms",   &CharacterNumbers::TermsInCareer},
    {"Rank",          &CharacterNumbers::Rank},                {"Commissioned",  &CharacterNumbers::Commissioned},
    {"Graduated",     &CharacterNumbers::Graduated},           {"Allies",        &CharacterNumbers::Allies},
    {"Enemies",       &CharacterNumbers::Enemies},             {"Contacts",      &CharacterNumbers::Contacts},
    {"Rivals",        &CharacterNumbers::Rivals},              {"Qualification", &CharacterNumbers::QualificationDM},
    {"Survival",      &CharacterNumbers::SurvivalDM},          {"Commission",    &CharacterNumbers::CommissionDM},
    {"Advancement",   &CharacterNumbers::AdvancementDM},       {"Parole",        &CharacterNumbers::ParoleThreshold},
    {"Leave",         &CharacterNumbers::LeaveCareer},         {"Rolls",         &CharacterNumbers::MusterRolls},
    {"Benefits",      &CharacterNumbers::BenefitRollsModifier},{"Bonus",         &CharacterNumbers::MusterBonusCount},
    {"CashRolls",     &CharacterNumbers::CashRollsUsed}};
inline const std::vector<std::string_view> kSlots = {"[0]", "Str", "Dex", "End", "Int", "Edu", "Soc", "PSI", "[8]", "[9]", "[10]"};
// clang-format on

template <typename Numbers, typename Visit>
void ForEachNumber(Numbers& numbers, const Visit& visit) {
    for (const auto& [name, field] : kNumbers)
        visit(name, numbers.*field);
    for (int i = 0; i <= kMostCharacteristics; ++i) {
        visit(kSlots.at(static_cast<std::size_t>(i)), numbers.Characteristic[i]);
        visit(Concat(kSlots.at(static_cast<std::size_t>(i)), "DM"), numbers.CharacteristicDM[i]);
    }
    visit("Cash", numbers.Cash);
    visit("Pension", numbers.Pension);
    visit("Debt", numbers.MedicalDebt);
}

// Carries out a change as "Enemies+1" or "Leave=0". Returns whether there is such a number.
inline bool Change(CharacterNumbers& numbers, std::string_view change) {
    const auto mark = change.find_first_of("=+-");
    const auto amount = std::stoi(std::string(change.substr(mark + 1)));
    bool found = false;
    ForEachNumber(numbers, [&](std::string_view name, auto& value) {
        if (name != change.substr(0, mark))
            return;
        const int before = change[mark] == '=' ? 0 : static_cast<int>(value);
        const int after = change[mark] == '-' ? before - amount : before + amount;
        value = static_cast<std::remove_reference_t<decltype(value)>>(after);
        found = true;
    });
    return found;
}

// All numbers, a line each.
inline std::string Told(const CharacterNumbers& numbers) {
    std::string text;
    ForEachNumber(numbers, [&](std::string_view name, const auto& value) {
        AppendAll(text, name, "=", static_cast<std::int64_t>(value), "\n");
    });
    return text;
}

inline std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines)
        AppendAll(text, text.empty() ? "" : " | ", line);
    return text;
}

struct Question {
    enum Kind { Choice, List, Yes, No, Notice, NoticeWhenAsked, AnySkill, AnySkillAlways, Prison } kind;
    std::string text = {};
    std::string options = {};  // joined by "/"
    int pick = 0;              // 0: the case is played for each alternative; -1: cancelled
    std::size_t others = 0;    // the last ones, which aren't played then
};

struct Case {
    std::string event;
    std::string given = {};  // numbers, and skills that are held: "Enemies=0, Gun Combat (Slug)=1"
    std::vector<Question> asked = {};
    std::vector<Die> dice = {};
    std::string history = {};  // the lines, joined by " | "; "*" is what the granted skill writes
    std::string changes = {};  // of the numbers: "Enemies+1 Leave=0"; no other number changes
    std::string end = {};      // what else came of it, as the fixture tells it
};

// Most numbers that an event may change are 10 before it, so that setting differs from adding; no specialities are
// asked for, no benefit rolls are left to spend, and no care is covered.
class Cases : public World {
  protected:
    Cases() {
        Give("Allies=10, Enemies=10, Contacts=10, Rivals=10, Qualification=10, Survival=10, Commission=10, Parole=10");
        Give("Advancement=10, Rolls=10, Bonus=10, Benefits=-10, Terms=3, CareerTerms=2");
        session.race.specialities.clear();
        session.race.lifeEvents[9] = "Life";
        session.career.medicalCover = {};
        session.career.mishapTable[1] = "Mishap/";
    }
    void Give(std::string_view given) {
        for (const auto item : SplitAll(given, ','))
            if (const auto [name, value] = SplitFirst(Trim(item), "="); !value.empty())
                if (!Change(character(), Trim(item)))
                    Hold(std::string(name), std::stoi(std::string(value)));
        RecomputeCharacteristicDMs(character());
    }

    using Text = const std::string&;
    static Die D6(int result) { return Rolled(1, 6, result); }
    static Die TwoD6(int result) { return Rolled(2, 6, result); }
    static Question One(Text title, Text options, int pick) { return {Question::Choice, title, options, pick, 0}; }
    static auto Of(Text title, Text options) { return std::bind_front(One, title, options); }
    static Question Each(Text title, Text options, std::size_t others = 0) {
        return {Question::Choice, title, options, 0, others};
    }
    static Question Yes(Text text) { return {Question::Yes, text}; }
    static Question No(Text text) { return {Question::No, text}; }
    static Question Notice(Text text) { return {Question::Notice, text}; }
    static Question Listed(Text prompt, Text items, int pick = 0) { return {Question::List, prompt, items, pick, 0}; }
    static std::string Care(Text loss) { return "Stat " + loss + " reduced by 1. Take Cr5000 medical debt to avoid?"; }
    // Any basic skill: "Animals" when asked, "Admin" when drawn. Prison: a notice, and mustering out without a roll.
    const Question anySkill = {Question::AnySkill}, anySkillAtZero = {Question::AnySkill, "-0"},
                   anySkillAlways = {Question::AnySkillAlways}, prison = {Question::Prison};
    std::string firstLine;  // stands before the lines of each case

    // Expects the roll that leads to the event, which is told by its total here.
    virtual void Begin(const std::string& event) { dice.Expect({TwoD6(std::stoi(event))}); }
    virtual void Act() = 0;
    // The career and assignment where they changed.
    virtual std::string End() {
        const auto place = session.selection.career + " " + session.selection.assignment;
        return place == "Army Infantry" ? "" : place;
    }

    void Play(const std::vector<Case>& cases) {
        for (const auto& each : cases) {
            Question open = {Question::Choice, "", "*"};
            bool refused = false;
            for (const auto& asked : each.asked) {
                refused = refused || asked.kind == Question::No || asked.pick < 0;
                if (asked.kind <= Question::List && asked.pick == 0)
                    open = asked;
            }
            const auto alternatives = SplitAll(open.options, '/');
            for (std::size_t i = 0; i + open.others < alternatives.size(); ++i)
                for (const bool automatic : {false, true})
                    if (!automatic || !refused)
                        Play(each, static_cast<int>(i) + 1, std::string(alternatives[i]), automatic);
        }
    }

  private:
    void Play(const Case& each, int alternative, std::string granted, bool automatic) {
        SCOPED_TRACE(Concat(each.event, " \"", granted, "\" ", automatic ? "automatic, " : "", each.given));
        const Session start = session;
        session.options.Set(Option::AutomaticGeneration, automatic);
        Give(each.given);
        CharacterNumbers expected = character();
        auto history = firstLine + (firstLine.empty() || each.history.empty() ? "" : " | ") + each.history;
        Begin(each.event);
        Expect(each, alternative, granted, automatic);
        if (const auto star = history.find('*'); star != std::string::npos)
            history.replace(star, 1, LineOf(granted));
        Act();
        ExpectScriptsDone();
        EXPECT_EQ(Joined(History()), history);
        for (const auto change : SplitAll(each.changes, ' '))
            EXPECT_TRUE(change.empty() || Change(expected, change)) << change;
        EXPECT_EQ(Told(character()), Told(expected));
        EXPECT_EQ(End(), each.end);
        session = start;
    }

    // Expects the questions, and the dice with the answers that are drawn instead.
    void Expect(const Case& each, int alternative, std::string& granted, bool automatic) {
        std::vector<Die> answers;
        for (const auto& [kind, text, options, pick, others] : each.asked) {
            const int place = pick == 0 ? alternative : pick;
            const auto count = static_cast<int>(SplitAll(options, '/').size());
            const bool drawn = automatic && kind != Question::AnySkillAlways;
            if (kind == Question::AnySkill || kind == Question::AnySkillAlways)
                granted = (drawn ? "Admin" : "Animals") + text;
            if (kind == Question::Notice || (kind == Question::NoticeWhenAsked && !automatic))
                player.ExpectTell(text);
            else if (kind == Question::Prison)
                player.ExpectTell(kPrisonNotice).ExpectMuster(MusterButton::Done);
            else if (drawn && kind <= Question::List)
                answers.push_back(kind == Question::List ? Rolled(1, count, place) : Drawn(count, place - 1));
            else if (drawn && kind == Question::AnySkill)
                answers.push_back(Drawn(38, 20));
            else if (kind == Question::Choice)
                player.ExpectChoice(text, options, place);
            else if (kind == Question::List)
                player.ExpectList(text, options, pick < 0 ? std::vector<int>() : std::vector{place});
            else if (kind >= Question::AnySkill)
                player.ExpectListLimits("Select Any Skill", 1, 1, {3});
            else if (kind <= Question::No && !automatic)
                player.ExpectAsk(text, kind == Question::Yes);
        }
        auto rolls = each.dice;
        if (std::ranges::find(rolls, kAnswer.count, &Die::count) == rolls.end())
            rolls.insert(rolls.begin(), each.asked.size(), kAnswer);
        for (auto answer = answers.begin(); const auto& roll : rolls)
            if (roll.count != kAnswer.count)
                dice.Expect({roll});
            else if (answer != answers.end())
                dice.Expect({*answer++});
    }

    // The line that a skill string writes when the skill is new.
    static std::string LineOf(const std::string& skill) {
        const auto mark = skill.find_first_of("=-");
        return mark == std::string::npos ? skill + "-1" : skill.substr(0, mark) + "-" + skill.substr(mark + 1);
    }
};

}  // namespace korvane::test
