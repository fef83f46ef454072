#include "check/finding.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "base/encoding.h"
#include "base/text.h"

namespace korvane::check {

namespace {

constexpr auto kError = Severity::Error;
constexpr auto kWarning = Severity::Warning;

constexpr std::array<Kind, 32> kKinds = {{
    {"alternatives", kError,
     "A question shows at most 24 alternatives. A row that joins more by \"/\" stops the life with an error."},
    {"assignments-missing", kError,
     "A career is entered through an assignment. Without a file RACE-CAREER-ASSIGNMENT.eas it can't be started."},
    {"basic-training", kError,
     "Each row of the first skill table is trained at level 0 when the career begins: the rules write \"-0\" behind "
     "it. "
     "Alternatives and levels don't survive that. Name one skill, without a level."},
    {"benefit", kWarning,
     "Some benefits do something (a vehicle brings a skill, an ally a friend), and are known by their exact text. This "
     "one is nearly one of them, but will only be written down. Spell it exactly, or word it quite differently."},
    {"career-missing", kError, "The entry names a career that the race doesn't have: there is no file for it."},
    {"careers-missing", kError,
     "A race is played through its careers. Without a file RACE-CAREER.ecf it can't be chosen."},
    {"case", kError,
     "Files are found without regard to the case of letters. Two whose names differ in that alone can't both be."},
    {"check-characteristic", kError,
     "A check names a characteristic by three letters. The race has none of that name. (A \"+\" may stand among the "
     "letters: its place says whose modifier counts.)"},
    {"check-counts-other", kWarning,
     "A check adds the modifier of the characteristic in whose place the \"+\" stands, counted from the first "
     "character, whatever the check names: \"End 6+\" has it in place 6 and counts the sixth, Soc. To count the third, "
     "put it there: \"En+d6\"."},
    {"check-form", kError,
     "A check is read by places: the first three characters name a characteristic, the number that begins at the fifth "
     "is the target, and the place of the first \"+\" says which characteristic's modifier is added. So \"+Str6\", "
     "\"D+ex6\", \"En+d6\", \"Int+7\", \"Edu +7\" and \"Soc 7+\" count the first to the sixth."},
    {"code-foreign", kWarning, "The code belongs to another career, whose people and places its questions name."},
    {"code-unknown", kError,
     "What stands behind \"/\" are codes, in capitals, with blanks between them. Mishaps and events have their own. "
     "\"korvane-cli codes --describe\" tells what each does."},
    {"commission", kError,
     "A career without commissions says \"No\", exactly so. Anything else is a check, of which five characters are "
     "kept: \"Int+8\"."},
    {"count", kError, "A count says how many lines of the list follow. It must be a whole number, and right."},
    {"duplicate", kWarning, "The same stands twice where one is meant."},
    {"file-unseen", kWarning,
     "No list shows this file: its race or career has none. Files are RACE.eri, RACE-CAREER.ecf and "
     "RACE-CAREER-ASSIGNMENT.eas, letter for letter."},
    {"heading", kError,
     "Files are read by line numbers alone. A heading that isn't where it belongs means that a line is missing or too "
     "many before it: all that follows would be read as something else."},
    {"label", kError, "The line begins with another label than it should. Labels are skipped by their length."},
    {"lines", kError, "The file ends too early."},
    {"lines-after", kWarning, "What stands after the last line of a file is never read."},
    {"medical", kError, "Medical cover is a percentage from 0 to 100, after a label and a blank."},
    {"number", kError,
     "Numbers are read up to the first character that isn't a digit: \"5,000\" is 5, \"Cr5000\" is nothing. Write "
     "digits alone."},
    {"pre-career", kWarning, R"(Nothing happens at such a place. The rules know "University" and "Military Academy".)"},
    {"skill-level", kError,
     R"(A level behind "=" or "-" is a whole number, not above 15. A "-" within a name is taken for the mark of a level, )"
     R"(unless a "=" stands in the row: write "Engineer (M-Drive)=1".)"},
    {"skill-raise", kError,
     R"(A characteristic is raised by its three letters, a blank, "+" and a number up to 15: "Str +1".)"},
    {"skill-unknown", kWarning,
     "The skill isn't in MasterSkills.dat, so pages don't show it and checks of the rules don't find it."},
    {"slash", kError, "A \"/\" ends the text of an entry: what follows are codes. Write the text without one."},
    {"speciality", kWarning, "The race file doesn't list this speciality of the skill."},
    {"tag", kWarning, "Nothing is put in the place of a tag that nobody knows: it stands on the page as it is."},
    {"text-missing", kError, "A text is missing: what happens would go without a word."},
    {"title", kError,
     "The title of the third skill table is the requirement for it: a characteristic and a number, \"Edu 8+\"."},
    {"unreadable", kError, "The file can't be read as what it is."},
}};

}  // namespace

std::span<const Kind> Kinds() {
    return kKinds;
}

const Kind* KindNamed(std::string_view code) {
    const auto kind = std::ranges::find(kKinds, code, &Kind::code);
    return kind == kKinds.end() ? nullptr : &*kind;
}

void Report::Add(std::string_view kind, int line, std::size_t column, const std::string& message,
                 std::string_view text) {
    const auto* const known = KindNamed(kind);
    if (known == nullptr)
        throw std::logic_error("there is no such kind of finding: " + std::string(kind));
    constexpr std::size_t kMostShown = 300;
    constexpr int kMostOfFile = 200;
    if (++count_ > kMostOfFile)
        return;
    findings_.push_back({file_, line, static_cast<int>(column), known, Printable(message, kMostShown),
                         std::string(FirstCharacters(text, column + kMostShown))});
}

std::size_t Piece::ColumnOf(std::string_view part) const {
    const auto before = static_cast<std::size_t>(part.data() - whole.data());
    return CharacterCount(whole.substr(0, before)) + 1;
}

}  // namespace korvane::check
