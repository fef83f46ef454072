// The small effects of which codes are composed: plain structs that can be looked at. What each does stands beside it;
// how it is carried out, in apply.cpp.
#pragma once

#include <concepts>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "character/KVNDeclare.h"

namespace korvane::codes {

struct Effect;
using Effects = std::vector<Effect>;
using Texts = std::vector<std::string_view>;

// A number of the character.
using Field = Count CharacterNumbers::*;

// ---- Numbers

// Sets a number.
struct Set {
    Field field;
    int value;
};

// Adds to a number, or takes from it.
struct Add {
    Field field;
    int amount;
};

// Raises a number to at least a value.
struct AtLeast {
    Field field;
    int value;
};

// Changes a characteristic, without bounds.
struct Alter {
    int slot;
    int amount;
};

// Lowers a characteristic, but not below 1.
struct Lower {
    int slot;
    int amount;
};

// ---- Lines, skills and people

// Writes a line.
struct Line {
    std::string_view text;
};

// Grants a skill string.
struct Grant {
    std::string_view skill;
};

// Has the player pick one skill string of a list, and grants it.
struct Pick {
    std::string_view title;
    Texts items;
};

// Has the player choose one skill string, and grants it; a line may stand between the answer and the grant.
struct Choose {
    std::string_view title;
    Texts options;
    std::string_view line = {};
};

// Asks such a question and does nothing with the answer.
struct ChooseInVain {
    std::string_view title;
    Texts options;
};

// Any basic skill; the second asks in automatic mode too.
struct AnySkill {};
struct AnySkillAsked {};

// Improves a held skill.
struct Improve {};

struct Enemy {
    std::string_view text;
};
struct Contact {
    std::string_view text;
};
struct Rival {
    std::string_view text;
};
struct Ally {
    std::string_view text;
};

// ---- Hazards

enum class InjuryDice { TablesOwn, WorstOfTwo, BetterOfTwo, Row2 };

// An injury, by the roll named.
struct Hurt {
    InjuryDice dice = InjuryDice::TablesOwn;
};

// Lowers a characteristic, with the offer of care.
struct Reduce {
    int slot;
    int amount;
};

struct GoToPrison {};
struct SufferMishap {};

// ---- Branches

// Has the player choose an alternative, and carries out its effects.
struct Alternative {
    std::string_view text;
    Effects effects;
};
struct Either {
    std::string_view title;
    std::vector<Alternative> alternatives;
};

// A Yes/No question; Yes in automatic mode.
struct Ask {
    std::string_view question;
    Effects yes;
    Effects no;
    std::string_view caption = {};  // empty: the program's title
};

// A rolled check, as "Edu 8+".
struct Check {
    std::string_view check;
    Effects success;
    Effects failure;
};

// A roll against a skill, or the best of one such roll for each of several skills.
struct SkillTest {
    Texts skills;
    int target;
    Effects success;
    Effects failure;
};

// 2D6 with the best modifier among skills, against a target.
struct BestTest {
    Texts skills;
    int target;
    Effects success;
    Effects failure;
};

// A roll of dice: the first band that reaches up to the total is carried out, if any does.
struct Band {
    int upTo;
    Effects effects;
};
struct OnRoll {
    int count;
    int sides;
    std::vector<Band> bands;
};

// Carries out effects as many times as a die says.
struct Repeat {
    int sides;
    Effects effects;
};

// ---- What no other effect says: a function of the rules, and in words what it does.
struct Call {
    void (*function)(Session& session);
    std::string_view words;
};

struct Effect {
    using Kind = std::variant<Set, Add, AtLeast, Alter, Lower, Line, Grant, Pick, Choose, ChooseInVain, AnySkill,
                              AnySkillAsked, Improve, Enemy, Contact, Rival, Ally, Hurt, Reduce, GoToPrison,
                              SufferMishap, Either, Ask, Check, SkillTest, BestTest, OnRoll, Repeat, Call>;

    template <typename Which>
    requires std::constructible_from<Kind, Which> Effect(Which which) : kind(std::move(which)) {}

    Kind kind;
};

}  // namespace korvane::codes
