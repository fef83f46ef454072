#include "skills/skill_tables.h"

#include <array>
#include <span>

#include "base/text.h"
#include "character/checks.h"
#include "data/rule_row.h"
#include "skills/grant.h"

namespace korvane {

namespace {

constexpr int kColumns = 6;
constexpr int kPersonal = 1;
constexpr int kService = 2;
constexpr int kAdvanced = 3;
constexpr int kOfficer = 4;
constexpr int kAssignment = 5;

// Which columns may be pressed, numbered from 1, and whether the advanced table's requirement is met.
struct Access {
    std::array<bool, kColumns + 1> enabled{};
    bool requirementMet = false;
};

Access TableAccess(Session& session) {
    Access access;
    access.requirementMet = CheckStat(session, session.career.skillTableTitle[kAdvanced]);
    access.enabled[kPersonal] = true;
    access.enabled[kService] = true;
    access.enabled[kAdvanced] = access.requirementMet && session.career.advancedTable[1] != "-";
    access.enabled[kOfficer] = session.character.Commissioned == 1;
    access.enabled[kAssignment] = true;
    return access;
}

std::span<const std::string_view> RowsOf(const Session& session, int column) {
    const auto rows = [](const SixRows& table) { return std::span(table).subspan(1); };
    switch (column) {
        case kPersonal:
            return rows(session.career.personalTable);
        case kService:
            return rows(session.career.serviceTable);
        case kAdvanced:
            return rows(session.career.advancedTable);
        case kOfficer:
            return rows(session.career.officerTable);
        case kAssignment:
            return rows(session.assignment.assignmentTable);
        default:
            return {};
    }
}

TableQuestion QuestionFor(const Session& session, const Access& access) {
    TableQuestion question{"Select a skill from the above tables", {}};
    for (int i = 1; i <= kColumns; ++i) {
        auto& column = question.columns.at(static_cast<std::size_t>(i));
        column.enabled = access.enabled.at(static_cast<std::size_t>(i));
        if (i != kOfficer || column.enabled)
            column.rows = RowsOf(session, i);
    }
    question.columns[kPersonal].caption = "Personal";
    question.columns[kService].caption = "Service";
    question.columns[kAdvanced].caption = "Advanced";
    if (!access.requirementMet)
        question.columns[kAdvanced].caption += " " + session.career.skillTableTitle[kAdvanced];
    question.columns[kOfficer].caption = "Officer";
    question.columns[kAssignment].caption = session.selection.assignment;
    return question;
}

int RollColumn(Session& session, const Access& access) {
    int column = Roll(session, 1, kColumns);
    while (!access.enabled.at(static_cast<std::size_t>(column)))
        column = Roll(session, 1, kColumns);
    return column;
}

}  // namespace

void ChooseSkillTable(Session& session) {
    const auto access = TableAccess(session);
    const bool by_die = session.Automatic() || session.options[Option::RandomSkills];
    RollSkillTableRow(
        session, by_die ? RollColumn(session, access) : session.seams.player->PickTable(QuestionFor(session, access)));
}

void RollSkillTableRow(Session& session, int column) {
    const auto rows = RowsOf(session, column);
    if (rows.empty())
        throw RuleError(RuleError::Kind::Subscript, Concat("there is no skill table number ", column));
    const auto row = rows[static_cast<std::size_t>(Roll(session, 1, 6) - 1)];
    const auto& file = column == kAssignment ? session.assignment.source : session.career.source;
    CarryOutRow(file, row, [&] { GrantSkill(session, row); });
}

}  // namespace korvane
