#include <nlohmann/json.hpp>

#include "base/error.h"
#include "character/seams_guard.h"
#include "output/journal/lines.h"
#include "play/life_plan.h"
#include "play/vocabulary.h"
#include "play/wish.h"
#include "web/desk.h"
#include "web/told.h"

// What goes on from request to request, so that a page can show what there is and stop when it likes.
namespace korvane::web {

namespace {

play::PlayerKind PlayerIn(const nlohmann::ordered_json& request) {
    const auto name = request.value("player", std::string("sensible"));
    return name == "random"      ? play::PlayerKind::Random
           : name == "automatic" ? play::PlayerKind::Automatic
                                 : play::PlayerKind::Sensible;
}

play::LifePlan PlanIn(const nlohmann::ordered_json& request) {
    play::LifePlan plan;
    plan.race = request.value("race", std::string());
    plan.career = request.value("career", std::string());
    plan.assignment = request.value("assignment", std::string());
    plan.player = PlayerIn(request);
    plan.terms = request.value("terms", 4);
    plan.method = MethodOfCaption(request.value("method", std::string())).value_or(RollingMethod::True2D);
    plan.options = OptionsIn(request.value("options", nlohmann::ordered_json::array()));
    plan.seed.emplace(request.at("seed").get<std::string>());
    return plan;
}

}  // namespace

// The first request has the journal of the life; those after it, how many lives there are to be.
void Desk::Odds(const Request& request, std::string& out) {
    if (request.contains("journal")) {
        BeginSearch();
        WaitingPlayer player(*session_, nullptr);
        play::RecordedLife life(*session_, clock_, player);
        if (!LiveOn(life, JournalIn(request)))
            odds_ = std::make_unique<play::Odds>(*searching_,
                                                 play::QuestionIn(*session_, life.tape(), player.alternatives()));
    }
    if (odds_ == nullptr)
        throw UsageError("no question waits");
    odds_->LiveUpTo(request.value("lives", std::uint64_t{50}));
    JsonWriter writer(out);
    writer.BeginObject();
    WriteOdds(writer, play::TableOf(odds_->figures()));
    writer.EndObject();
}

// The same; the first request says of which character.
void Desk::Careers(const Request& request, std::string& out) {
    if (request.contains("race")) {
        std::string rolled;
        Roll(request, rolled);
        BeginSearch();
        careers_ =
            std::make_unique<play::CareerOdds>(*searching_, play::ApplicantOf(*session_), request.value("terms", 4));
    }
    if (careers_ == nullptr)
        throw UsageError("no character waits");
    careers_->LiveUpTo(request.value("lives", std::uint64_t{50}));
    JsonWriter writer(out);
    writer.BeginObject();
    WriteCareers(writer, *careers_);
    writer.EndObject();
}

// Lives so many lives from a number on, up to the first character that fits; tells its journal.
void Desk::Find(const Request& request, std::string& out) {
    const auto plan = PlanIn(request);
    auto& session = *session_;
    const play::Wish wish(request.at("want").get<std::string>(), play::VocabularyOf(session));
    auto number = request.value("first", std::uint64_t{1});
    const auto end = number + request.value("lives", std::uint64_t{1000});
    JsonWriter writer(out);
    writer.BeginObject();
    for (; number < end; ++number) {
        if (!play::Live(session, plan, number).finished() || !wish.Fits(session))
            continue;
        journal::Tape tape;
        play::Live(session, plan, number, &tape);
        writer.Key("found").Unsigned(number);
        writer.Key("journal").Text(journal::JournalText(tape));
        ++number;
        break;
    }
    writer.Key("next").Unsigned(number);
    writer.EndObject();
}

// The documents of so many characters from a number on, a line each, and their journals where they are wanted.
void Desk::Lives(const Request& request, std::string& out) {
    const auto plan = PlanIn(request);
    const bool journals = request.value("journals", false);
    const auto first = request.value("first", std::uint64_t{1});
    std::string documents;
    JsonWriter writer(out);
    writer.BeginObject();
    writer.Key("journals").BeginArray();
    for (auto number = first; number < first + request.value("count", std::uint64_t{1}); ++number) {
        journal::Tape tape;
        const auto outcome = play::Live(*session_, plan, number, journals ? &tape : nullptr);
        if (journals)
            writer.Text(journal::JournalText(tape));
        if (outcome.finished())
            documents += CharacterDocument(*session_, {std::nullopt, number, Origin{plan.seed, number}, 0, false,
                                                       DocumentForm::Second}) +
                         "\n";
    }
    writer.EndArray();
    writer.Key("documents").Text(documents);
    writer.EndObject();
}

}  // namespace korvane::web
