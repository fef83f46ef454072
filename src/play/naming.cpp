#include "play/naming.h"

#include "base/checksum.h"
#include "character/seams_guard.h"
#include "engine/names.h"
#include "output/character_document.h"

namespace korvane::play {

std::string NameOfCharacter(Session& session) {
    SeededDice dice(Checksum(CharacterDocument(session)), 0);
    const SeamsGuard guard(session.seams);
    session.seams.dice = &dice;
    return RollNameOf(session);
}

}  // namespace korvane::play
