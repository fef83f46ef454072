#include "base/encoding.h"
#include "base/error.h"
#include "base/files.h"
#include "base/nearest.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "data/data_folder.h"

namespace korvane::cli {

namespace {

// Plays as it is, and shows each line's place. What stands in the tables is to be replaced.
constexpr std::string_view kCareer = R"(What people of this career do, in a sentence.
Qualification:Int+6
Commission:No
[Cash]
1000
2000
5000
8000
10000
20000
40000
[Benefits]
Contact
Int +1
Ally
Edu +1
Personal Vehicle
Soc +1
Two Ship Shares
[Skills]Personal Development
Athletics
Carouse
Drive
Streetwise
Admin
Recon
[Skills]Service Skills
Mechanic
Electronics or Drive
Persuade
Deception
Melee
Int +1
[Skills]Edu 8+
Advocate
Language
Science
Medic
Electronics (Computers)
Edu +1
[Skills]Officer
Leadership
Admin
Persuade
Diplomat
Investigate
Soc +1
[Mishaps]
Something hurts you badly./SINJ
Somebody who trusted you trusts you no longer./BETRAY
You are blamed, and people talk./MINUS1SOC
A long illness leaves its mark./MINUS1END
Something falls on you, and your place is kept./INJR NOEJEC
Everything goes wrong at once.
[Events]
This entry is never rolled, but its line must be here.
Disaster! What could go wrong goes wrong together.
You practise what you do, and do it better./ADVT
A piece of your work is seen by those who count./PRO2
A quiet year.
Work like other work, with its own small jokes.
Your own life knocks at the door./LIFE
Busy months, one like the next.
You show somebody how it is done./ADVT
Good luck, for once, and it has your name on it./PRO2
Somebody leaves, and you learn their part of it./ADVT
You do the one thing that nobody else could./PROA
[Medical]
4-7: 0
8-11: 50
12-20: 75
)";

constexpr std::string_view kAssignment = R"(What people of this assignment do, in a sentence.
[Checks]
Survive:En+d6
Advance:Int+7
[Skills]
Mechanic
Recon
Persuade
Drive
Mechanic
Dex +1
[Ranks]
Newcomer
Hand
Good Hand
Old Hand
Foreman
Overseer
Master
[Bonuses]
-
Mechanic=1
-
Recon=1
-
Persuade=1
-
[Officers]
First officer
Second officer
Third officer
Fourth officer
Fifth officer
Sixth officer
[Officer bonuses]
-
Leadership=1
-
-
-
Soc +1
)";

void WriteNew(const HeldPath& path, std::string_view text, std::ostream& out) {
    if (FileExists(path))
        throw UsageError(Concat(NativePath(path).string(), " is there already"));
    const auto file = NativePath(path);
    ReplaceFile(file, text);
    out << file.string() << '\n';
}

}  // namespace

int NewCareer(const NewCareerCommand& command, Streams& streams) {
    const auto folder = EnsureTrailingBackslash(RuleFolder(command.data));
    const auto races = DataFolder(folder).RaceNames();
    const auto race = KnownName(*races, command.race);
    if (std::ranges::find(*races, race) == races->end())
        throw UsageError(Concat("unknown race ", Quoted(race), " (no file ", race, ".eri)",
                                DidYouMean(race, std::vector<std::string_view>(races->begin(), races->end()))));
    if (IsBlank(command.career) || command.career.find_first_of("/\\-") != std::string::npos)
        throw UsageError(R"(a career's name is a word or more, without "-" and "/")");
    const auto beginning = Concat(race, "-", command.career);
    WriteNew(folder + (beginning + ".ecf"), kCareer, streams.out);
    WriteNew(folder + (beginning + "-First Assignment.eas"), kAssignment, streams.out);
    streams.out << "Fill them in, and let \"korvane-cli check\" read them.\n";
    return kSuccess;
}

}  // namespace korvane::cli
