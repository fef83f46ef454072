// The shared declarations: the one session that holds all records of a run, with its dice, its player and its display.
// It is made once, in `main`, and handed down by reference.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "character/character_record.h"
#include "character/dice.h"
#include "character/display.h"
#include "character/options.h"
#include "character/player.h"
#include "data/data_folder.h"
#include "data/master_skills.h"
#include "data/records.h"

namespace korvane {

// What is selected, and what there is to select from.
struct Selection {
    DataFolder::SharedNames races = std::make_shared<const Names>();
    DataFolder::SharedNames careers = std::make_shared<const Names>();
    DataFolder::SharedNames assignments = std::make_shared<const Names>();
    std::string race;
    std::string career;
    std::string assignment;
};

// What the choice service keeps between its calls.
struct ChoiceState {
    bool automaticOnce = false;  // the next question alone is answered at random
    int focusPreset = 0;         // above 0: the alternative, from 0, that has the focus in the next question; no rule
                                 // asks for one, dialogs and their tests do
    Count PickIndex;             // the number of the last choice, as ChooseOption gave it
    std::string PickText;        // the text of the last choice
    std::string LastSkillGranted;
};

// What the last mustering out brought.
struct MusterResults {
    std::size_t historyBefore = 0;  // the lines of the history when it began
    TextList cash;
    TextList benefits;
};

// The outside world. None of the first three is ever missing while a rule runs.
struct Seams {
    Dice* dice = nullptr;
    Player* player = nullptr;
    Display* display = nullptr;
    Observer* observer = nullptr;
};

struct Session {
    Session(DataFolder folder, Seams world) : data(std::move(folder)), seams(world) {}

    std::string programTitle;
    MasterSkills masterSkills;

    DataFolder data;
    Selection selection;
    RaceRecord race;
    CareerRecord career;
    AssignmentRecord assignment;
    CharacterRecord character;

    RollingMethod method = RollingMethod::True2D;
    Options options;
    bool hasStepsBetween = true;  // background skills, connections, packages: the lives of the first version had none
    ChoiceState choice;
    MusterResults musterResults;
    Seams seams;

    bool Automatic() const { return options[Option::AutomaticGeneration]; }
};

// Rolls dice; a count of 0 or less gives 0 and rolls nothing.
inline int Roll(Session& session, int count, int sides) {
    return count > 0 ? session.seams.dice->Roll(count, sides) : 0;
}

// Notes that the life has loaded a rule file.
inline void NoteFile(Session& session, const std::shared_ptr<const TextFile>& file) {
    if (session.seams.observer != nullptr && file)
        session.seams.observer->FileLoaded(*file);
}

// Shows a notice, whatever the mode.
inline void Tell(Session& session, std::string_view text) {
    session.seams.player->Tell({text, Icon::None});
}
// Shows one that automatic mode keeps to itself.
inline void TellUnlessAutomatic(Session& session, std::string_view text, Icon icon = Icon::None) {
    if (!session.Automatic())
        session.seams.player->Tell({text, icon});
}

// A Yes/No question; in automatic mode it isn't shown and the answer is Yes.
inline bool AskYesNo(Session& session, const YesNoQuestion& question) {
    return session.Automatic() || session.seams.player->Ask(question);
}

// Writes a line, made of texts and whole numbers, into the history. The line takes the first slot that is blank; when
// all are taken it is dropped.
template <typename... Pieces>
void AddHistory(Session& session, const Pieces&... pieces) {
    auto& history = session.character.History;
    if (history.size() == kMostHistoryLines)
        return;
    history.AddLine(pieces...);
    session.seams.display->HistoryChanged();
}

}  // namespace korvane
