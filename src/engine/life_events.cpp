#include "engine/life_events.h"

#include "engine/associates.h"
#include "engine/injury.h"
#include "engine/prison.h"
#include "skills/choice.h"

namespace korvane {

namespace {

void GainEnemyOrRival(Session& session, std::string_view text) {
    if (Roll(session, 1, 2) == 1)
        AddEnemy(session, text);
    else
        AddRival(session, text);
}

void FaceAccusation(Session& session) {
    const int place =
        ChoosePlace(session, "Accused of a Crime; Choose Option", "Lose 1 Benefit roll/Serve a term in Prison");
    if (place == 1) {
        session.character.MusterRolls -= 1;
        AddHistory(session, "You commit or are the victim (or are accused) of a crime; lose 1 benefit roll");
        return;
    }
    AddHistory(session, "You commit or are the victim (or are accused) of a crime and are sent to prison");
    Imprison(session);
}

// The events whose line is the race's text, which is written already.
void ApplyTold(Session& session, int total) {
    auto& character = session.character;
    switch (total) {
        case 4:
            GainEnemyOrRival(session, "Breakup");
            break;
        case 5:
        case 6:
            AddAlly(session, "New/Improved Relationship");
            break;
        case 7:
            AddContact(session, "New Contact");
            break;
        case 8:
            GainEnemyOrRival(session, "Betrayed");
            LoseAllyOrContact(session);
            break;
        case 9:
            character.QualificationDM += 1;
            break;
        case 10:
            character.MusterBonusCount += 2;
            break;
        case 12:
            AddHistory(session, "* More details later");
            break;
        default:  // the text of 3 is all there is
            break;
    }
}

}  // namespace

void LoseAllyOrContact(Session& session) {
    auto& character = session.character;
    if (character.Allies >= 1) {
        character.Allies -= 1;
        AddHistory(session, "Betrayed by Ally");
    } else if (character.Contacts >= 1) {
        character.Contacts -= 1;
        AddHistory(session, "Betrayed by Contact");
    }
}

void RollLifeEvent(Session& session) {
    const int total = Roll(session, 2, 6);
    if (total == 2) {
        int roll = 0;
        Injure(session, roll);
    } else if (total == 11) {
        FaceAccusation(session);
    } else {
        AddHistory(session, session.race.lifeEvents.at(static_cast<std::size_t>(total)));
        ApplyTold(session, total);
    }
}

}  // namespace korvane
