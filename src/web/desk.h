// What a page asks of the engine: a request, and its answer, each as JSON. A request says under "do" what is wanted;
// docs/browser.md tells the others of its members. An answer that has an "error" has nothing else.
#pragma once

#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "character/KVNDeclare.h"
#include "play/career_odds.h"
#include "play/odds.h"
#include "play/recorded_life.h"
#include "web/waiting_player.h"

namespace korvane::web {

class Desk {
  public:
    // `rules`: the folder of the rule data.
    explicit Desk(std::string rules);
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    // Throws nothing that the request, a text, could be blamed for.
    std::string Answer(const std::string& text);

  private:
    using Request = nlohmann::ordered_json;
    using Action = void (Desk::*)(const Request& request, std::string& out);
    static const std::map<std::string, Action, std::less<>>& Actions();

    // Takes another folder for the rules.
    void Use(const Request& request, std::string& out);
    void Rules(const Request& request, std::string& out);
    void Check(const Request& request, std::string& out);
    void Roll(const Request& request, std::string& out);
    // Lives a journal's life again, gives one answer, and tells where that leads.
    void Step(const Request& request, std::string& out);
    void Export(const Request& request, std::string& out);
    // The page of the session's character by the template of that name.
    void WritePage(std::string& out, const std::string& name, const std::string& of);
    void Name(const Request& request, std::string& out);
    void Verify(const Request& request, std::string& out);
    void Moments(const Request& request, std::string& out);
    void FromTerm(const Request& request, std::string& out);
    void Odds(const Request& request, std::string& out);
    void Careers(const Request& request, std::string& out);
    void Find(const Request& request, std::string& out);
    void Lives(const Request& request, std::string& out);

    // The journal that a request holds, or the beginning of one.
    static journal::Journal JournalIn(const Request& request);
    // Lives a journal's life to its end; nothing where a question waits.
    static std::optional<play::LifeOutcome> LiveOn(play::RecordedLife& life, journal::Journal journal);
    // A session on the rules that are used.
    std::unique_ptr<Session> NewSession();
    // Begins another search, which has a session of its own; the one before ends.
    void BeginSearch();
    // The same for a finished one, whose character is left in the session. Throws UsageError for another.
    journal::Tape LiveFinished(const Request& request);

    std::string location_;
    Display display_;
    ClockDice clock_;
    std::unique_ptr<Session> session_;
    // The search that goes on from request to request, one of the two, and its session.
    std::unique_ptr<Session> searching_;
    std::unique_ptr<play::Odds> odds_;
    std::unique_ptr<play::CareerOdds> careers_;
};

}  // namespace korvane::web
