#include "engine/associates.h"

#include "character/summary.h"

namespace korvane {

namespace {

void AddAssociate(Session& session, Count& count, std::string_view kind, std::string_view text) {
    count += 1;
    AddHistory(session, kind, text);
    ShowSummary(session);
}

}  // namespace

void AddEnemy(Session& session, std::string_view text) {
    AddAssociate(session, session.character.Enemies, "Enemy: ", text);
}

void AddContact(Session& session, std::string_view text) {
    AddAssociate(session, session.character.Contacts, "Contact: ", text);
}

void AddRival(Session& session, std::string_view text) {
    AddAssociate(session, session.character.Rivals, "Rival: ", text);
}

void AddAlly(Session& session, std::string_view text) {
    AddAssociate(session, session.character.Allies, "Ally: ", text);
}

}  // namespace korvane
