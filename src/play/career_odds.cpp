#include "play/career_odds.h"

#include <algorithm>
#include <utility>

#include "base/encoding.h"
#include "base/error.h"
#include "base/nearest.h"
#include "base/text.h"
#include "character/seams_guard.h"
#include "data/known_names.h"
#include "engine/prison.h"
#include "play/life.h"
#include "play/odds_table.h"
#include "play/prospect.h"
#include "play/sensible_player.h"

namespace korvane::play {

namespace {

constexpr std::uint64_t kApplicantsDice = 0x6170706C7964696;
constexpr std::uint64_t kApplicantsPlayers = 0x6170706C796D656E;

// Notes how an applicant fares.
class ApplicantWitness : public Witness {
  public:
    explicit ApplicantWitness(Session& session) : Witness(session), session_(session) {}

    std::optional<double> acceptance;  // the chance of it
    bool accepted = false;
    bool mayCommission = false;  // in the career applied for
    bool commissioned = false;   // by the end of the first term
    bool imprisoned = false;

    void CheckRolled(const RolledCheck& rolled) override {
        if (!acceptance && rolled.check.data() == session_.career.qualification.data()) {
            acceptance = rolled.WaysOf36() / 36.0;
            accepted = rolled.effect >= 0;
        }
        Witness::CheckRolled(rolled);
    }
    void HistoryChanged() override {
        imprisoned |= session_.character.History.lines().back().starts_with(kImprisoned);
        Witness::HistoryChanged();
    }
    void SummaryChanged() override {
        Witness::SummaryChanged();
        if (Watches())
            commissioned |= session_.character.Commissioned == 1;
    }

  private:
    Session& session_;
};

// Tells a witness of the end of a term.
class ApplyingPlayer : public SensiblePlayer {
  public:
    ApplyingPlayer(const Session& session, RandomStream stream, int terms, Witness& witness)
        : SensiblePlayer(session, stream, terms), witness_(witness) {}
    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override {
        witness_.TermEnds();
        return SensiblePlayer::EndOfTerm(question);
    }

  private:
    Witness& witness_;
};

const Skill* BestOf(const CharacterRecord& character) {
    const Skill* best = nullptr;
    for (const auto* const skill : character.Skills.Held())
        if (best == nullptr || skill->Level > best->Level)
            best = skill;
    return best;
}

template <typename Add>
void TellEnd(const CharacterRecord& character, const ApplicantWitness& witness, const Prospect& prospect,
             const Add& add) {
    const auto told = [&](Figure figure) { return prospect.at(static_cast<std::size_t>(figure)); };
    if (const auto survives = told(Figure::Survives))
        add(CareerFigure::Survives, *survives);
    add(CareerFigure::Promoted, told(Figure::Promoted).value_or(0));
    if (witness.mayCommission)
        add(CareerFigure::Commissioned, witness.commissioned ? 1 : 0);
    add(CareerFigure::Rank, character.Rank);
    add(CareerFigure::Levels, told(Figure::Levels).value_or(0));
    const auto* const best = BestOf(character);
    add(CareerFigure::Best, best == nullptr ? 0 : int{best->Level});
    add(CareerFigure::Cash, static_cast<double>(std::int64_t{character.Cash}));
    add(CareerFigure::Benefits, static_cast<double>(character.Benefits.size()));
    add(CareerFigure::Debt, static_cast<double>(character.MedicalDebt));
    add(CareerFigure::Prison, witness.imprisoned ? 1 : 0);
}

std::vector<std::string_view> Views(const Names& names) {
    return {names.begin(), names.end()};
}

}  // namespace

Applicant ApplicantOf(const Session& session) {
    return {session.selection.race, session.character.Characteristic, session.method, session.options};
}

Applicant AverageApplicant(Session& session) {
    constexpr int kRolls = 2000;
    const SeamsGuard guard(session.seams);
    SeededDice dice(kApplicantsDice, 0);
    session.seams.dice = &dice;
    std::array<int, kMostCharacteristics + 1> sums{};
    for (int i = 0; i < kRolls; ++i) {
        StartNewCharacter(session);
        for (int slot = 1; slot <= session.character.CharacteristicCount; ++slot)
            sums.at(static_cast<std::size_t>(slot)) += session.character.Characteristic[slot];
    }
    auto applicant = ApplicantOf(session);
    for (int slot = 1; slot <= session.character.CharacteristicCount; ++slot)
        applicant.characteristics[slot] = (sums.at(static_cast<std::size_t>(slot)) + kRolls / 2) / kRolls;
    return applicant;
}

std::string CareerProspects::BestSkill() const {
    const auto most = std::ranges::max_element(bestSkills, {}, [](const auto& each) { return each.second; });
    return most == bestSkills.end() ? std::string() : most->first;
}

CareerOdds::CareerOdds(Session& session, Applicant applicant, int terms, const std::string& career)
    : session_(session), applicant_(std::move(applicant)) {
    comparison_.terms = terms;
    applicant_.options.Set(Option::AutomaticGeneration, false);  // they are lived with sense
    const auto careers = session.data.CareerNames(applicant_.race);
    auto& places = comparison_.places;
    for (const auto& name : *careers) {
        if (career.empty() ? name == kPrisoner : !EqualsIgnoringCase(name, career))
            continue;
        places.push_back({name, {}});
        for (const auto& assignment : *session.data.AssignmentNames(applicant_.race, name))
            places.push_back({name, assignment});
    }
    if (places.empty() && career.empty())
        throw UsageError(Concat("the rule data have no careers of ", Quoted(applicant_.race)));
    if (places.empty())
        throw UsageError(Concat("unknown career ", Quoted(career), DidYouMean(career, Views(*careers))));
}

void CareerOdds::LiveUpTo(std::uint64_t lives, const std::function<bool()>& stops) {
    auto& places = comparison_.places;
    for (; comparison_.lives < lives; ++comparison_.lives)
        for (std::size_t i = 0; i < places.size();) {
            auto& whole = places[i++];
            std::vector<Life> told;
            for (; i < places.size() && !places[i].assignment.empty(); ++i) {
                if (stops && stops())
                    return;
                if (auto life = LiveOnce(places[i], comparison_.lives + 1))
                    told.push_back(*life);
            }
            AddMean(told, whole);
        }
}

void CareerOdds::AddMean(const std::vector<Life>& lives, CareerPlace& whole) {
    for (std::size_t figure = 0; figure < kCareerFigures; ++figure) {
        double sum = 0;
        int count = 0;
        for (const auto& life : lives)
            if (const auto& told = life.figures.at(figure)) {
                sum += *told;
                ++count;
            }
        if (count > 0)
            whole.prospects.figures.at(figure).Add(sum / count);
    }
    for (const auto& life : lives)
        if (!life.bestSkill.empty())
            ++whole.prospects.bestSkills[life.bestSkill];
}

std::optional<CareerOdds::Life> CareerOdds::LiveOnce(CareerPlace& place, std::uint64_t number) {
    if (!place.fault.empty())
        return std::nullopt;
    const SeamsGuard guard(session_.seams);
    ApplicantWitness witness(session_);
    SeededDice dice(kApplicantsDice, number);
    ApplyingPlayer player(session_, RandomStream(RandomStream::Mix(kApplicantsPlayers) + RandomStream::Mix(number)),
                          comparison_.terms, witness);
    session_.seams = {&dice, &player, &witness, nullptr};
    session_.method = applicant_.method;
    session_.options = applicant_.options;
    const auto outcome = LiveOut(session_, [&](Session& session) {
        Select(session, applicant_.race, place.career, place.assignment);
        witness.mayCommission = session.career.commission != kNoCommission;
        StartNewCharacter(session);
        session.character.Characteristic = applicant_.characteristics;
        RecomputeCharacteristicDMs(session.character);
        session.seams.observer = &witness;
        witness.Begin();
    });
    if (outcome.endedInFileError()) {
        place.fault = outcome.error;
        if (std::ranges::none_of(comparison_.places, [](const CareerPlace& each) { return each.fault.empty(); }))
            std::rethrow_exception(outcome.cause);
        return std::nullopt;
    }
    const auto prospect = witness.End();
    if (!outcome.end || !witness.acceptance)
        return std::nullopt;
    Life life;
    const auto add = [&](CareerFigure figure, double value) {
        life.figures.at(static_cast<std::size_t>(figure)) = value;
        place.prospects.figures.at(static_cast<std::size_t>(figure)).Add(value);
    };
    add(CareerFigure::Accepted, *witness.acceptance);
    if (!witness.accepted)
        return life;
    TellEnd(session_.character, witness, prospect, add);
    if (const auto* const best = BestOf(session_.character)) {
        life.bestSkill = best->Name;
        ++place.prospects.bestSkills[best->Name];
    }
    return life;
}

const std::array<CareerColumn, kCareerFigures>& CareerColumns() {
    // clang-format off
    static constexpr std::array<CareerColumn, kCareerFigures> kColumns = {{
        {CareerFigure::Accepted,     "accepted",     "Accepted",     "The chance to be accepted; what follows is of those who are"},
        {CareerFigure::Survives,     "survives",     "Survives",     "The chance to make the first roll for survival"},
        {CareerFigure::Promoted,     "promoted",     "Promoted",     "The chance to be promoted or commissioned in the first term"},
        {CareerFigure::Commissioned, "commissioned", "Commission",   "The chance to be commissioned in the first term"},
        {CareerFigure::Rank,         "rank",         "Rank",         "The rank at the end: 1 to 6 enlisted, 7 to 12 officers"},
        {CareerFigure::Levels,       "levels",       "Levels",       "Skill levels at the end"},
        {CareerFigure::Best,         "best",         "Best skill",   "The level of the best skill at the end, and the skill that is it most often"},
        {CareerFigure::Cash,         "cash",         "Cash",         "Cash at the end"},
        {CareerFigure::Benefits,     "benefits",     "Benefits",     "Material benefits at the end"},
        {CareerFigure::Debt,         "debt",         "Debt",         "Medical debt at the end"},
        {CareerFigure::Prison,       "prison",       "Prison",       "The chance to have been in prison by the end"},
    }};
    // clang-format on
    return kColumns;
}

std::optional<Estimate> EstimateOf(const CareerProspects& prospects, CareerFigure figure) {
    const auto& sample = prospects.At(figure);
    const bool came_to_pass = IsChance(figure) && figure > CareerFigure::Survives;
    return came_to_pass ? sample.Share() : sample.Number();
}

std::string CellText(const CareerProspects& prospects, CareerFigure figure) {
    const auto estimate = EstimateOf(prospects, figure);
    if (!estimate)
        return "–";
    if (IsChance(figure))
        return ChanceText(*estimate);
    const auto text = NumberText(*estimate, figure == CareerFigure::Cash || figure == CareerFigure::Debt);
    const auto skill = figure == CareerFigure::Best ? prospects.BestSkill() : std::string();
    return skill.empty() ? text : Concat(skill, " ", text);
}

}  // namespace korvane::play
