#include "data/record_files.h"
#include "data/record_lines.h"

namespace korvane {

AssignmentRecord ReadAssignment(const std::shared_ptr<const TextFile>& file) {
    RecordLines lines(*file);
    AssignmentRecord assignment;
    assignment.source = file;
    assignment.assignmentDescription = lines.Next("the assignment's description");
    lines.SkipHeading("the heading of the checks");
    assignment.survival = lines.NextAfterLabel(8, "the survival check");
    assignment.advancement = lines.NextAfterLabel(8, "the advancement check");
    lines.SkipHeading("the heading of the skill table");
    lines.Fill(assignment.assignmentTable, 1, 6, "a row of the skill table");
    lines.SkipHeading("the heading of the ranks");
    lines.Fill(assignment.rankTitle, 0, 6, "the title of a rank");
    lines.SkipHeading("the heading of the rank bonuses");
    lines.Fill(assignment.rankBonus, 0, 6, "the bonus of a rank");
    lines.SkipHeading("the heading of the officer ranks");
    lines.Fill(assignment.rankTitle, 7, 12, "the title of an officer rank");
    lines.SkipHeading("the heading of the officer bonuses");
    lines.Fill(assignment.rankBonus, 7, 12, "the bonus of an officer rank");
    return assignment;
}

}  // namespace korvane
