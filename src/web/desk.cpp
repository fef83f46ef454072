#include "web/desk.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "character/characteristics.h"
#include "character/seams_guard.h"
#include "check/folder.h"
#include "engine/names.h"
#include "output/journal/lines.h"
#include "output/page_export.h"
#include "output/targets/targets.h"
#include "play/naming.h"
#include "play/other_life.h"
#include "play/verify.h"
#include "web/told.h"

namespace korvane::web {

namespace {

using Json = nlohmann::ordered_json;

std::string TextIn(const Json& request, const char* key, const std::string& otherwise = {}) {
    const auto found = request.find(key);
    if (found == request.end() || found->is_null())
        return otherwise;
    if (!found->is_string())
        throw UsageError(Concat("\"", key, "\" is no text"));
    return found->get<std::string>();
}

RollingMethod MethodIn(const Json& request) {
    return MethodOfCaption(TextIn(request, "method")).value_or(RollingMethod::True2D);
}

Origin OriginIn(const Json& request) {
    const auto seed = TextIn(request, "seed");
    return {seed.empty() ? std::nullopt : std::optional(Seed(seed)), request.value("number", std::uint64_t{1})};
}

}  // namespace

Desk::Desk(std::string rules) : location_(std::move(rules)), session_(NewSession()) {}

Desk::~Desk() = default;

std::unique_ptr<Session> Desk::NewSession() {
    return std::make_unique<Session>(DataFolder(Held(location_), DataFolder::Reading::Once),
                                     Seams{nullptr, nullptr, &display_, nullptr});
}

void Desk::BeginSearch() {
    odds_.reset();
    careers_.reset();
    searching_ = NewSession();
}

const std::map<std::string, Desk::Action, std::less<>>& Desk::Actions() {
    static const std::map<std::string, Action, std::less<>> actions = {{"use", &Desk::Use},
                                                                       {"rules", &Desk::Rules},
                                                                       {"check", &Desk::Check},
                                                                       {"roll", &Desk::Roll},
                                                                       {"step", &Desk::Step},
                                                                       {"export", &Desk::Export},
                                                                       {"name", &Desk::Name},
                                                                       {"verify", &Desk::Verify},
                                                                       {"moments", &Desk::Moments},
                                                                       {"odds", &Desk::Odds},
                                                                       {"careers", &Desk::Careers},
                                                                       {"find", &Desk::Find},
                                                                       {"from term", &Desk::FromTerm},
                                                                       {"lives", &Desk::Lives}};
    return actions;
}

std::string Desk::Answer(const std::string& text) {
    std::string out;
    try {
        const auto request = Json::parse(text);
        const auto action = Actions().find(TextIn(request, "do"));
        if (action == Actions().end())
            throw UsageError("nothing is called so: " + TextIn(request, "do"));
        (this->*action->second)(request, out);
    } catch (const std::exception& error) {
        out.clear();
        JsonWriter writer(out);
        writer.BeginObject();
        writer.Key("error").Text(error.what());
        writer.EndObject();
    }
    return out;
}

void Desk::Use(const Request& request, std::string& out) {
    const auto folder = TextIn(request, "folder");
    if (DataFolder(Held(folder)).RaceNames()->empty())
        throw UsageError("there are no rule data: no file of a race (*.eri)");
    location_ = folder;
    session_ = NewSession();
    BeginSearch();
    Rules(request, out);
}

void Desk::Rules(const Request& /*request*/, std::string& out) {
    JsonWriter writer(out);
    writer.BeginObject();
    writer.Key("program").Text("korvane " KORVANE_VERSION);
    WriteRules(writer, *session_);
    writer.EndObject();
}

void Desk::Check(const Request& request, std::string& out) {
    const auto findings = check::CheckFolder(Held(TextIn(request, "folder", location_)));
    JsonWriter writer(out);
    writer.BeginObject();
    writer.Key("findings").BeginArray();
    for (const auto& finding : findings) {
        writer.BeginObject();
        writer.Key("file").Text(finding.file);
        writer.Key("line").Number(finding.line);
        writer.Key("column").Number(finding.column);
        writer.Key("error").Truth(finding.kind->severity == check::Severity::Error);
        writer.Key("kind").Text(finding.kind->code);
        writer.Key("message").Text(finding.message);
        writer.EndObject();
    }
    writer.EndArray();
    writer.EndObject();
}

journal::Journal Desk::JournalIn(const Request& request) {
    if (const auto text = TextIn(request, "journal"); !text.empty())
        return journal::ReadJournal("the journal", text);
    journal::Journal journal;
    auto& start = journal.tape.start;
    start.program = "korvane " KORVANE_VERSION;
    start.dice = OriginIn(request);
    start.race = TextIn(request, "race");
    start.career = TextIn(request, "career");
    start.assignment = TextIn(request, "assignment");
    start.method = MethodIn(request);
    start.options = OptionsIn(request.value("options", Json::array()));
    return journal;
}

std::optional<play::LifeOutcome> Desk::LiveOn(play::RecordedLife& life, journal::Journal journal) {
    try {
        return life.GoOn(std::move(journal), {});
    } catch (const PlayerLeft&) {
        return std::nullopt;
    }
}

// As the set-up of a life shows it, before its career is chosen.
void Desk::Roll(const Request& request, std::string& out) {
    const auto origin = OriginIn(request);
    if (!origin.seed)
        throw UsageError("a seed is needed");
    auto& session = *session_;
    const SeamsGuard guard(session.seams);
    WaitingPlayer nobody(session, nullptr);
    SeededDice dice(origin.seed->value(), origin.number);
    session.seams.dice = &dice;
    session.seams.player = &nobody;
    session.method = MethodIn(request);
    session.options = OptionsIn(request.value("options", Json::array()));
    const auto race = TextIn(request, "race");
    const auto careers = session.data.CareerNames(race);
    const auto& career = careers->empty() ? race : careers->front();
    const auto assignments = session.data.AssignmentNames(race, career);
    play::Select(session, race, career, assignments->empty() ? std::string() : assignments->front());
    StartNewCharacter(session);
    JsonWriter writer(out);
    writer.BeginObject();
    WriteLife(writer, session);
    writer.EndObject();
}

namespace {

// Takes the tape back to before the question of that place among its questions, or to before its end. What stood there
// is returned, as lines of a journal: a text for each question, with what came after it.
std::vector<std::string> CutAt(journal::Tape& tape, std::size_t question) {
    std::vector<std::string> cut;
    std::size_t seen = 0;
    const auto from = std::ranges::find_if(
        tape.lines, [&](const journal::Line& line) { return journal::IsQuestion(line) && seen++ == question; });
    if (from == tape.lines.end() && (seen != question || !tape.end))
        throw UsageError("there is no such question in the journal");
    for (auto line = from; line != tape.lines.end(); ++line) {
        if (journal::IsQuestion(*line))
            cut.emplace_back();
        journal::AppendLine(cut.back(), *line);
        cut.back() += '\n';
    }
    tape.lines.erase(from, tape.lines.end());
    tape.end.reset();
    return cut;
}

void WriteEnd(JsonWriter& writer, const play::LifeOutcome& outcome) {
    if (!outcome.end) {
        writer.Key("end").Text("error");
        writer.Key("message").Text(Concat(outcome.kind, " error: ", outcome.error));
    } else {
        writer.Key("end").Text(outcome.finished() ? journal::kMusteredOut : journal::kScrapped);
    }
}

}  // namespace

void Desk::Step(const Request& request, std::string& out) {
    auto journal = JournalIn(request);
    auto& tape = journal.tape;
    tape.backs = request.value("backs", tape.end ? tape.end->backs.value_or(0) : std::int64_t{0});
    std::vector<std::string> cut;
    if (const auto back = request.find("back"); back != request.end())
        cut = CutAt(tape, back->get<std::size_t>());
    const auto answer = request.find("answer");
    auto& session = *session_;
    WaitingPlayer player(session, answer == request.end() ? nullptr : &*answer);
    std::optional<play::LifeOutcome> outcome;
    play::RecordedLife life(session, clock_, player);
    if (request.value("goOn", false))
        life.goesOn = [](const journal::Divergence&) { return true; };
    JsonWriter writer(out);
    writer.BeginObject();
    try {
        outcome = LiveOn(life, std::move(journal));
    } catch (const journal::Divergence& divergence) {
        writer.Key("diverges").Text(divergence.what());
        writer.EndObject();
        return;
    }
    writer.Key("journal").Text(journal::JournalText(life.tape()));
    writer.Key("backs").Number(life.tape().backs);
    writer.Key("changed").TextArray(life.changedFiles());
    writer.Key("answered")
        .Number(static_cast<std::int64_t>(std::ranges::count_if(life.tape().lines, journal::IsQuestion)));
    writer.Key("cut").TextArray(cut);
    writer.Key("notices").TextArray(player.notices());
    if (outcome)
        WriteEnd(writer, *outcome);
    else
        writer.Key("question").Raw(player.question());
    WriteLife(writer, session);
    writer.EndObject();
}

// The questions that were answered, with the line of the history at which each was asked.
void Desk::Moments(const Request& request, std::string& out) {
    WaitingPlayer player(*session_, nullptr);
    play::RecordedLife life(*session_, clock_, player);
    LiveOn(life, JournalIn(request));
    JsonWriter writer(out);
    writer.BeginObject();
    writer.Key("moments").BeginArray();
    for (std::size_t i = 0; i < life.MomentCount(); ++i)
        writer.Number(static_cast<std::int64_t>(life.MomentAt(i).history));
    writer.EndArray();
    writer.EndObject();
}

journal::Tape Desk::LiveFinished(const Request& request) {
    WaitingPlayer player(*session_, nullptr);
    play::RecordedLife life(*session_, clock_, player);
    if (const auto outcome = LiveOn(life, JournalIn(request)); !outcome || !outcome->finished())
        throw UsageError("the life isn't finished");
    return life.tape();
}

void Desk::Export(const Request& request, std::string& out) {
    const auto tape = LiveFinished(request);
    const auto& session = *session_;
    auto labels = play::LabelsOf(tape);
    labels.name = TextIn(request, "name");
    labels.luck = request.value("luck", false);
    const auto format = TextIn(request, "format");
    std::string text;
    if (format == "json") {
        labels.form = DocumentForm::Second;
        text = CharacterDocument(session, labels) + "\n";
    } else if (format == "md") {
        text = targets::Markdown(session, labels);
    } else if (format == "csv") {
        text = targets::TableHead() + targets::TableRow(session, labels);
    } else if (format == "foundry-journal") {
        text = targets::JournalEntryHead(*labels.name) + targets::JournalEntryPage(session, labels) +
               targets::JournalEntryEnd();
    } else if (format == "foundry-actor") {
        text = targets::Actor(session, labels);
    } else {
        WritePage(out, format, *labels.name);
        return;
    }
    JsonWriter writer(out);
    writer.BeginObject();
    writer.Key("text").Text(text);
    writer.EndObject();
}

void Desk::WritePage(std::string& out, const std::string& name, const std::string& of) {
    const auto& location = session_->data.location();
    const auto known = TemplateNames(location);
    if (std::ranges::find(known, name) == known.end())
        throw UsageError(Concat("there is no template \"", name, "\""));
    session_->masterSkills = LoadMasterSkills(location);
    const auto form = ReadTemplate(location + name);
    JsonWriter writer(out);
    writer.BeginObject();
    writer.Key("encoding").Text(form.encoding == Encoding::Utf8 ? "utf-8" : "windows-1252");
    // A character for each byte, which may be anything.
    std::string letters;
    for (const char letter : Page(form, *session_, of)) {
        const auto byte = static_cast<unsigned char>(letter);
        constexpr unsigned kFirstOfTwo = 0x80;
        if (byte < kFirstOfTwo) {
            letters += letter;
        } else {
            letters += static_cast<char>(0xC0U | byte >> 6U);
            letters += static_cast<char>(0x80U | (byte & 0x3FU));
        }
    }
    writer.Key("bytes").Text(letters);
    writer.EndObject();
}

void Desk::Name(const Request& request, std::string& out) {
    LiveFinished(request);
    std::string name;
    if (const auto number = request.value("roll", 0); number == 0) {
        name = play::NameOfCharacter(*session_);
    } else {
        const SeamsGuard guard(session_->seams);
        session_->seams.dice = &clock_;
        name = RollNameOf(*session_);
    }
    JsonWriter writer(out);
    writer.BeginObject();
    writer.Key("name").Text(name);
    writer.EndObject();
}

void Desk::Verify(const Request& request, std::string& out) {
    const auto proof = play::Verify(*session_, JournalIn(request), std::nullopt);
    JsonWriter writer(out);
    writer.BeginObject();
    writer.Key("verdict").Text(play::NameOf(proof.verdict));
    writer.Key("why").Text(proof.why);
    writer.EndObject();
}

// The journal of a finished life up to a term, to be gone on with by other dice.
void Desk::FromTerm(const Request& request, std::string& out) {
    const auto tape = JournalIn(request).tape;
    const auto terms = play::TermBeginnings(*session_, tape);
    JsonWriter writer(out);
    writer.BeginObject();
    if (const auto wanted = request.find("term"); wanted != request.end()) {
        const auto term = std::ranges::find(terms, wanted->get<int>(), &play::TermBeginning::term);
        if (term == terms.end())
            throw UsageError("there is no such term");
        writer.Key("journal").Text(journal::JournalText(play::UpTo(tape, term->line)));
    } else {
        writer.Key("terms").BeginArray();
        for (const auto& term : terms) {
            writer.BeginArray();
            writer.Number(term.term);
            writer.Text(term.heading);
            writer.EndArray();
        }
        writer.EndArray();
    }
    writer.EndObject();
}

}  // namespace korvane::web
