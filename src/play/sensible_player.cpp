#include "play/sensible_player.h"

#include <algorithm>
#include <array>
#include <limits>

#include "base/text.h"
#include "data/known_names.h"
#include "engine/education.h"
#include "skills/grant.h"
#include "skills/modifiers.h"

namespace korvane::play {

namespace {

// clang-format off

// Questions whose answers are no skills: what a person of sense would say.
struct Answer { std::string_view title, option; };
constexpr std::array<Answer, 13> kAnswers = {{
    {"Severe Injury - Select Option",          "Injury 2"},
    {"Criminal Offers Deal",                   "Accept deal from Criminal"},
    {"Commander Involved in Illegality",       "Co-Operate with Military Police"},
    {"Assaulted by Prison Gang",               "Don't Fight Back"},
    {"Law Practice Goes Bust",                 "Don't Co-Operate"},
    {"Business Goes Bust",                     "Don't Co-Operate"},
    {"Blamed for accident that caused deaths", "Not your fault"},
    {"You Learn Something You Shouldn't",      "Profit from the Secret"},
    {"Risky Adventure Went Wrong",             "Injured"},
    {"Gambling Ring",                          "Gamble this term"},
    {"With whom is the connection",            "Another player's character"},
    {"Chance to hire a lawyer",                "Don't hire one"},
    {"Heroism in Battle",                      "Automatic Promotion"},
}};

// Yes/No questions, by how they begin.
struct Reply { std::string_view question; bool yes; };
constexpr std::array<Reply, 13> kReplies = {{
    {"Ordered on Black Ops",                 true},
    {"Work Sabotaged",                       false},
    {"Approached by illegal psionic group",  true},
    {"Offered a risky adventure",            true},
    {"Mission disaster",                     false},
    {"Abuse your position",                  false},
    {"Challenged to a Duel",                 true},
    {"Arrested",                             false},
    {"Chance to backstab",                   false},
    {"Perform research",                     false},
    {"Ambushed by hostile ships",            false},
    {"You have ",                            true},
    {"You still have ",                      false},
}};

// Wagers on the better of two skills against 8, and the modifier from which they pay.
struct Wager { std::string_view question, skill, other; int least; };
constexpr std::array<Wager, 4> kWagers = {{
    {"Chance to bring down",      "Persuade",  "Persuade", 1},
    {"Smuggle illegal items",     "Deception", "Persuade", 0},
    {"Noble Conspiracy",          "Deception", "Persuade", 1},
    {"You have a chance to cheat", "Deception", "Admin",   1},
}};

// The losses that a title asks to be taken from a characteristic, and of how many points, about.
struct Loss { std::string_view title; int amount; };
constexpr std::array<Loss, 8> kLosses = {{
    {"Lose 1D from which stat?", 3}, {"Lose 2 from which stat?", 2}, {"Lose 1 from which stat?", 1},
    {"Stat Reduced by Age: Pick a stat to reduce by 1", 1}, {"Stat Reduced by Age: Pick a stat to reduce by 2", 2},
    {"Frozen Watch", 1}, {"Injured; select stat", 1}, {"Psychological Damage", 1},
}};

// clang-format on

// The row whose text a question begins with; nothing for none.
template <typename Rows, typename Text>
auto RowFor(const Rows& rows, std::string_view question, Text text) -> decltype(rows.data()) {
    const auto row = std::ranges::find_if(rows, [&](const auto& each) { return question.starts_with(each.*text); });
    return row == rows.end() ? nullptr : &*row;
}

// The place of an option, from 1; 0 when it isn't offered.
int PlaceOf(const ChoiceQuestion& question, std::string_view option) {
    const auto place = std::ranges::find(question.options, option);
    return place == question.options.end() ? 0 : static_cast<int>(place - question.options.begin()) + 1;
}

// The place of the option of the greatest value, from 1.
template <typename Value>
int BestOf(const ChoiceQuestion& question, const Value& value) {
    int best = 1;
    int most = std::numeric_limits<int>::min();
    for (std::size_t i = 0; i < question.options.size(); ++i)
        if (const int each = value(question.options[i]); each > most) {
            most = each;
            best = static_cast<int>(i) + 1;
        }
    return best;
}

}  // namespace

int SensiblePlayer::Choose(const ChoiceQuestion& question) {
    constexpr std::string_view kSpeciality = "Select Specialty for ";
    const auto title = question.title;
    if (title.starts_with(kSpeciality))
        return ChooseSpeciality(question, title.substr(kSpeciality.size()));
    if (title == "Select Pre-Career Education")
        return ChooseEducation(question);
    if (const auto* const loss = RowFor(kLosses, title, &Loss::title))
        return ChooseLoss(question, loss->amount);
    if (title.starts_with("Chance to risk") || title.starts_with("Gambling Ring - "))
        return ChooseStake(question);
    if (title == "Select Military Academy")
        if (const int own = PlaceOf(question, session().selection.career))
            return own;
    if (title == "Heroism in Battle" && session().character.Commissioned == 0 &&
        session().character.Characteristic[kSoc] > 8)
        if (const int commission = PlaceOf(question, "Automatic Commission"))
            return commission;
    if (const auto* const answer = RowFor(kAnswers, title, &Answer::title))
        if (const int place = PlaceOf(question, answer->option))
            return place;
    return ChooseByWorth(question);
}

int SensiblePlayer::ChooseEducation(const ChoiceQuestion& question) {
    if (const int academy = PlaceOf(question, kMilitaryAcademy); academy > 0 && HasAcademy(session().selection.career))
        return academy;
    const int university = PlaceOf(question, kUniversity);
    return university > 0 && session().character.CharacteristicDM[kEdu] >= 0 ? university : 1;
}

// The one that is held best, else one that the career teaches, else any; but a decision.
int SensiblePlayer::ChooseSpeciality(const ChoiceQuestion& question, std::string_view skill) {
    const auto worth = sense_.WorthOfSpecialities(skill, question.options);
    std::size_t place = 0;
    return BestOf(question, [&](std::string_view option) {
        const int each = worth.at(place++);
        return option == kPickLater ? -1 : each + Whim();
    });
}

int SensiblePlayer::ChooseLoss(const ChoiceQuestion& question, int amount) {
    const auto& character = session().character;
    return BestOf(question, [&](std::string_view option) {
        const int slot = CharacteristicSlot(character, FirstCharacters(option, 3));
        return slot == 0 ? 0 : 2 * character.Characteristic[slot] - 4 * sense_.CostOfLoss(slot, amount);
    });
}

// One roll where the odds are better than even: it is won as often as it could be lost, a higher stake only by half.
int SensiblePlayer::ChooseStake(const ChoiceQuestion& question) {
    const auto& character = session().character;
    const bool by_skill = question.title.starts_with("Chance to risk");
    const int skill = std::max(SkillModifier(character, "Gambler"), SkillModifier(character, "Broker"));
    return !by_skill || skill >= 1 ? 1 : static_cast<int>(question.options.size());
}

int SensiblePlayer::ChooseByWorth(const ChoiceQuestion& question) {
    if (question.options.size() == 1)
        return 1;
    sense_.TakeStock();
    return BestOf(question, [&](std::string_view option) { return sense_.WorthOf(option) + Whim(); });
}

std::vector<int> SensiblePlayer::Select(const ListQuestion& question) {
    if (question.items.empty())
        return {};
    if (question.maximum == 1)
        return {ChooseByWorth({question.prompt, question.items})};
    std::vector<std::pair<int, int>> worth;  // less, and the place from 1: the best come first
    worth.reserve(question.items.size());
    sense_.TakeStock();
    for (const auto item : question.items)
        worth.emplace_back(-sense_.WorthOf(item) - Whim(), static_cast<int>(worth.size()) + 1);
    const auto wanted = std::min(static_cast<std::size_t>(question.maximum), worth.size());
    std::ranges::partial_sort(worth, worth.begin() + static_cast<std::ptrdiff_t>(wanted));
    std::vector<int> marked;
    marked.reserve(wanted);
    for (std::size_t i = 0; i < wanted; ++i)
        marked.push_back(worth[i].second);
    std::ranges::sort(marked);
    return marked;
}

// "Stat End currently 7 reduced by 2. Take Cr10000 medical debt to avoid?": worth it when the loss would be felt.
bool SensiblePlayer::PaysForCare(std::string_view question) const {
    constexpr int kFelt = 10;
    const int slot = CharacteristicSlot(session().character, FirstCharacters(AfterCharacters(question, 5), 3));
    const int amount = LenientCount(SplitFirst(question, "reduced by ").second);
    return slot > 0 && sense_.CostOfLoss(slot, amount) >= kFelt;
}

bool SensiblePlayer::Ask(const YesNoQuestion& question) {
    const auto text = question.text;
    const auto& character = session().character;
    if (const auto* const wager = RowFor(kWagers, text, &Wager::question))
        return std::max(SkillModifier(character, wager->skill), SkillModifier(character, wager->other)) >= wager->least;
    if (const auto* const reply = RowFor(kReplies, text, &Reply::question))
        return reply->yes;
    if (text.starts_with("Stat "))
        return PaysForCare(text);
    return !text.starts_with("Enlist in the ") && question.defaultYes;  // the career asked for stays
}

// Tables by turns of chance; the weak and slow see to themselves more often.
int SensiblePlayer::PickTable(const TableQuestion& question) {
    const auto& modifiers = session().character.CharacteristicDM;
    const bool weak = modifiers[kStr] + modifiers[kDex] + modifiers[kEnd] < 0;
    const std::array<int, 7> weights = {0, weak ? 3 : 1, 3, 4, 4, 5, 0};
    int all = 0;
    for (std::size_t i = 1; i < weights.size(); ++i)
        all += question.columns.at(i).enabled ? weights.at(i) : 0;
    int left = stream().Below(std::max(all, 1));
    for (std::size_t i = 1; i < weights.size(); ++i)
        if (question.columns.at(i).enabled && (left -= weights.at(i)) < 0)
            return static_cast<int>(i);
    return RandomPlayer::PickTable(question);
}

MusterPress SensiblePlayer::Muster(const MusterQuestion& question) {
    const bool gambler = question.gamblerEnabled;
    if (question.cashEnabled && question.cash.size() <= question.benefits.size())
        return {MusterButton::Cash, gambler};
    if (question.materialEnabled)
        return {MusterButton::Material, gambler};
    return {question.cashEnabled ? MusterButton::Cash : MusterButton::Done, gambler};
}

}  // namespace korvane::play
