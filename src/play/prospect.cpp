#include "play/prospect.h"

#include <string>

#include "base/text.h"
#include "engine/prison.h"
#include "output/story.h"

namespace korvane::play {

namespace {

constexpr double kWays = 36;  // that two dice fall

double ToNumber(bool came_to_pass) {
    return came_to_pass ? 1 : 0;
}

}  // namespace

Witness::Holdings Witness::HoldingsOf(const CharacterRecord& character) {
    Holdings held;
    for (const auto& skill : character.Skills.all())
        if (!IsBlank(skill.Name))  // a free slot keeps its level
            held.levels += skill.Level;
    held.cash = std::int64_t{character.Cash};
    held.benefits = character.Benefits.size();
    held.years = character.Age;
    return held;
}

void Witness::Begin() {
    auto& character = session_.character;
    prospect_ = {};
    begun_ = true;
    termEnded_ = left_ = promoted_ = injured_ = imprisoned_ = false;
    term_ = rolls_ = checks_ = 0;
    roll_.clear();
    rank_ = character.Rank;
    before_ = HoldingsOf(character);
    character.History.Clear();
}

void Witness::CheckRolled(const RolledCheck& rolled) {
    if (!begun_)
        return;
    // By the text's place in its file: two checks may read the same.
    const bool is_survival = rolled.check.data() == session_.assignment.survival.data();
    // What each term rolls anyway isn't the answer's.
    const bool is_usual = is_survival || rolled.check.data() == session_.assignment.advancement.data() ||
                          rolled.check.data() == session_.career.commission.data();
    if (++checks_ == 1 && rolls_ == 1 && rolled.alone && !is_usual)
        NoteFirst(rolled);
    if (!is_survival || term_ != 0)
        return;
    const auto& character = session_.character;
    term_ = character.TermsTotal;
    // As surely as its roll: how this one fell says less.
    Set(Figure::Survives, rolled.WaysOf36(character.SurvivalDM) / kWays);
}

void Witness::NoteFirst(const RolledCheck& rolled) {
    Set(Figure::Roll, rolled.WaysOf36() / kWays);
    roll_ = CheckText(rolled.check);
}

void Witness::HistoryChanged() {
    if (!Watches())
        return;
    const std::string_view line = session_.character.History.lines().back();
    // Whoever goes into another career by choice, or out of prison, isn't thrown out.
    if (line.starts_with(kImprisoned))
        imprisoned_ = left_ = true;
    else if (line.starts_with("Ejected from career"))
        left_ = true;
    else
        injured_ |= StoryKindOf(line) == StoryKind::Injury;
}

void Witness::SummaryChanged() {
    if (!Watches())
        return;
    if (term_ != 0 && session_.character.TermsTotal > term_)
        TermEnds();
    else
        NoteRank();
}

void Witness::NoteRank() {
    promoted_ |= session_.character.Rank > rank_;
    rank_ = session_.character.Rank;
}

void Witness::TermEnds() {
    if (Watches() && term_ != 0)
        termEnded_ = true;
}

Prospect Witness::End() {
    if (term_ != 0 || left_) {
        Set(Figure::Leaves, ToNumber(left_));
        Set(Figure::Promoted, ToNumber(promoted_));
        Set(Figure::Injured, ToNumber(injured_));
        Set(Figure::Imprisoned, ToNumber(imprisoned_));
    }
    const auto held = HoldingsOf(session_.character);
    Set(Figure::Levels, held.levels - before_.levels);
    Set(Figure::Cash, static_cast<double>(held.cash - before_.cash));
    Set(Figure::Benefits, static_cast<double>(held.benefits) - static_cast<double>(before_.benefits));
    Set(Figure::Years, held.years - before_.years);
    begun_ = false;
    return prospect_;
}

}  // namespace korvane::play
