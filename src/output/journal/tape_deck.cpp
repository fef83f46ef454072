#include "output/journal/tape_deck.h"

#include <algorithm>
#include <filesystem>

#include "base/encoding.h"
#include "base/text.h"
#include "output/journal/lines.h"

namespace korvane::journal {

namespace {

std::vector<std::string> Owned(std::span<const std::string_view> texts) {
    return {texts.begin(), texts.end()};
}

bool Holds(const Names& names, const std::string& name) {
    return std::ranges::find(names, name) != names.end();
}

}  // namespace

void TapeDeck::Rewind() {
    position_ = 0;
    played_ = false;
    answered_.clear();
    loaded_.clear();
    changedFiles_.clear();
    foreignDie_.reset();
}

void TapeDeck::FastForward() {
    position_ = tape_.lines.size();
    for (const auto& line : tape_.lines)
        if (const auto* const file = std::get_if<FileLine>(&line))
            loaded_.emplace_back(file->request.name, file->answer);
}

void TapeDeck::Reject(std::string_view expected, std::string_view found) {
    if (player_ != nullptr) {
        --position_;
        answered_.pop_back();
        throw Divergence(JournalLine(position_), Concat(Printable(name_, 300), ":", JournalLine(position_),
                                                        ": expected ", expected, ", found ", found));
    }
    throw JournalError(name_, JournalLine(position_ - 1), expected, found);
}

template <typename LineOf>
const LineOf* TapeDeck::Held(const typename LineOf::Request& request) {
    if (position_ == tape_.lines.size())
        return nullptr;
    const auto& line = tape_.lines[position_];
    const auto* const held = std::get_if<LineOf>(&line);
    if (held == nullptr || !(held->request == request))
        RefuseLine(name_, position_, line, RequestText(LineOf{request, {}}));
    ++position_;
    played_ = true;
    return held;
}

void TapeDeck::Record(Line line) {
    tape_.lines.push_back(std::move(line));
    position_ = tape_.lines.size();
    if (recorded)
        recorded(tape_.lines.back());
}

void TapeDeck::GoOn(bool live, const Line& asked) {
    if (!live) {
        if (!tape_.end)
            throw JournalError(name_, JournalLine(position_), "another line of the journal", "the end of the file");
        std::string held;
        AppendEnd(held, *tape_.end);
        throw DivergenceAt(name_, position_, held, RequestText(asked));
    }
    if (std::exchange(played_, false) && playedOut)
        playedOut();
}

template <typename LineOf, typename Live>
typename LineOf::Answer TapeDeck::Take(typename LineOf::Request request, const Live& live) {
    if (const auto* const held = Held<LineOf>(request))
        return held->answer;
    constexpr bool kDie = std::is_same_v<LineOf, RollLine> || std::is_same_v<LineOf, DrawLine>;
    LineOf line{std::move(request), {}};
    GoOn(kDie ? dice_ != nullptr : player_ != nullptr, line);
    line.answer = live();
    auto answer = line.answer;
    Record(std::move(line));
    return answer;
}

template <typename LineOf, typename Live>
typename LineOf::Answer TapeDeck::TakeAnswer(typename LineOf::Request request, const Live& live) {
    const auto& character = session_.character;
    const Answered answered{{character.History.size(), character.TermsTotal}, position_};
    if (position_ == tape_.lines.size() && player_ == nullptr && tape_.end && tape_.end->kind == EndKind::Scrapped)
        throw CharacterScrapped();
    auto answer = Take<LineOf>(std::move(request), live);
    answered_.push_back(answered);
    return answer;
}

void TapeDeck::CompareDie(int result, int seeded) {
    if (result != seeded && !foreignDie_)
        foreignDie_ = position_ - 1;
}

int TapeDeck::Roll(int count, int sides) {
    const bool held = position_ < tape_.lines.size();
    const int result = Take<RollLine>({count, sides}, [&] { return dice_->Roll(count, sides); });
    if (held && seeded_ != nullptr)
        CompareDie(result, seeded_->Roll(count, sides));
    return result;
}

int TapeDeck::Draw(int n) {
    const bool held = position_ < tape_.lines.size();
    const int result = Take<DrawLine>({n}, [&] { return dice_->Draw(n); });
    if (held && seeded_ != nullptr)
        CompareDie(result, seeded_->Draw(n));
    return result;
}

int TapeDeck::Choose(const ChoiceQuestion& question) {
    return TakeAnswer<ChooseLine>({std::string(question.title), Owned(question.options)},
                                  [&] { return player_->Choose(question); });
}

std::vector<int> TapeDeck::Select(const ListQuestion& question) {
    return TakeAnswer<SelectLine>(
        {std::string(question.prompt), question.maximum, question.minimum, Owned(question.items)},
        [&] { return player_->Select(question); });
}

bool TapeDeck::Ask(const YesNoQuestion& question) {
    return TakeAnswer<AskLine>({std::string(question.text)}, [&] { return player_->Ask(question); });
}

void TapeDeck::Tell(const Notice& notice) {
    Take<TellLine>({std::string(notice.text)}, [&] {
        player_->Tell(notice);
        return Nothing();
    });
}

int TapeDeck::PickTable(const TableQuestion& question) {
    TableRequest request;
    for (std::size_t i = 1; i < question.columns.size(); ++i)
        if (question.columns.at(i).enabled)
            request.enabled.push_back(static_cast<int>(i));
    return TakeAnswer<TableLine>(std::move(request), [&] { return player_->PickTable(question); });
}

EndOfTermAnswer TapeDeck::EndOfTerm(const EndOfTermQuestion& question) {
    return TakeAnswer<EndOfTermLine>({question.termsTotal}, [&] { return player_->EndOfTerm(question); });
}

std::optional<TransferAnswer> TapeDeck::Transfer(const TransferQuestion& question) {
    const bool held = position_ < tape_.lines.size();
    auto answer = TakeAnswer<TransferLine>({}, [&] { return player_->Transfer(question); });
    if (!held || !answer)
        return answer;
    if (!answer->career.empty() && !Holds(question.careers, answer->career))
        Reject("a career that the transfer offers", Quoted(answer->career));
    if (!answer->assignment.empty() && !Holds(*question.assignmentsOf(answer->career), answer->assignment))
        Reject("an assignment that the transfer offers", Quoted(answer->assignment));
    return answer;
}

MusterPress TapeDeck::Muster(const MusterQuestion& question) {
    const bool held = position_ < tape_.lines.size();
    const auto press = TakeAnswer<MusterLine>({question.rolls}, [&] { return player_->Muster(question); });
    if (!held)
        return press;
    if (!question.Enabled(press.button) || (press.gambler && !question.gamblerEnabled)) {
        std::string line;
        AppendLine(line, tape_.lines[position_ - 1]);
        Reject("a control that is enabled", line);
    }
    return press;
}

void TapeDeck::CarriedOut(std::string_view chain, std::size_t row) {
    if (observer != nullptr)
        observer->CarriedOut(chain, row);
}

void TapeDeck::CharacterBegins() {
    if (observer != nullptr)
        observer->CharacterBegins();
}

void TapeDeck::CharacterStarted() {
    if (observer != nullptr)
        observer->CharacterStarted();
}

void TapeDeck::CheckRolled(const RolledCheck& rolled) {
    if (observer != nullptr && !played_)
        observer->CheckRolled(rolled);
}

void TapeDeck::NoteSelection() {
    for (const auto& file : {session_.race.source, session_.career.source, session_.assignment.source})
        if (file)
            FileLoaded(*file);
}

void TapeDeck::FileLoaded(const TextFile& file) {
    if (tape_.start.version == 1)
        return;
    auto name = std::filesystem::path(file.name()).filename().string();
    const auto known = std::ranges::find(loaded_, name, &std::pair<std::string, std::string>::first);
    const bool is_known = known != loaded_.end();
    const auto* const next = position_ < tape_.lines.size() ? std::get_if<FileLine>(&tape_.lines[position_]) : nullptr;
    const bool is_held = next != nullptr && next->request.name == name;
    // A file stands once, unless it changed in between; a tape that goes on tells of the change that it met.
    if (is_known && !is_held && (position_ < tape_.lines.size() || known->second == file.digest()))
        return;
    const auto digest = Take<FileLine>({name}, [&] { return file.digest(); });
    if (digest != file.digest() && std::ranges::find(changedFiles_, name) == changedFiles_.end())
        changedFiles_.push_back(name);
    if (is_known)
        known->second = file.digest();
    else
        loaded_.emplace_back(std::move(name), file.digest());
}

void TapeDeck::ExpectEnd(const End& end) const {
    std::string asked;
    AppendEnd(asked, {end.kind, end.errorKind, {}, {}, {}, {}});
    if (position_ < tape_.lines.size())
        RefuseLine(name_, position_, tape_.lines[position_], asked);
    if (!tape_.end)
        throw JournalError(name_, JournalLine(position_), "another line of the journal", "the end of the file");
    if (tape_.end->kind == end.kind && tape_.end->errorKind == end.errorKind)
        return;
    std::string held;
    AppendEnd(held, *tape_.end);
    throw DivergenceAt(name_, position_, held, asked);
}

}  // namespace korvane::journal
