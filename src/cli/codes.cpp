#include <array>
#include <exception>
#include <iomanip>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>

#include "base/text.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "engine/codes/chains.h"
#include "engine/codes/describe.h"
#include "play/life_plan.h"

namespace korvane::cli {

namespace {

// How often each row was carried out.
class Counter : public Observer {
  public:
    void CarriedOut(std::string_view chain, std::size_t row) override { ++rows_[{std::string(chain), row}]; }

    std::uint64_t Of(std::string_view chain, std::size_t row) const {
        const auto place = rows_.find({std::string(chain), row});
        return place == rows_.end() ? 0 : place->second;
    }

  private:
    std::map<std::pair<std::string, std::size_t>, std::uint64_t> rows_;
};

// Lives the lives, by turns of both players, and counts the errors that ended one, by their texts.
void LiveAll(const CodesCommand& command, Counter& counter, std::map<std::string, std::uint64_t>& errors) {
    Display display;
    Session session(DataFolder(RuleFolder(command.data), DataFolder::Reading::Once),
                    {nullptr, nullptr, &display, &counter});
    for (std::uint64_t number = 1; number <= command.count; ++number) {
        play::LifePlan plan;
        plan.seed = command.seed.value_or(Seed(1));
        plan.player = number % 2 == 0 ? play::PlayerKind::Automatic : play::PlayerKind::Random;
        const auto outcome = play::Live(session, plan, number);
        if (outcome.endedInFileError())
            std::rethrow_exception(outcome.cause);
        if (!outcome.end)
            ++errors[Concat(outcome.kind, " error: ", outcome.error)];
    }
}

void ListCodes(const codes::Chain& chain, const Counter& counter, bool counted, std::ostream& out) {
    for (std::size_t row = 0; row < chain.rows().size(); ++row) {
        out << std::left << std::setw(7) << chain.name() << std::setw(counted ? 16 : 0) << chain.rows()[row].code;
        if (counted)
            out << std::right << std::setw(10) << counter.Of(chain.name(), row);
        out << '\n';
    }
}

constexpr std::string_view kHandbook = R"(# Codes

What an entry of a mishap or event table carries after its "/". Every code that occurs anywhere behind it is carried out, in
this order, whatever the order in the entry; capitals count. A code within another counts too: "SINJR" is SINJ and INJR.
A skill such as `Admin=1` is granted as in the skill tables. "Choose" and "pick" are the player's; in automatic mode the
answer is drawn. This page is made by `korvane-cli codes --describe` of the rules themselves.
)";

void DescribeCodes(const codes::Chain& chain, std::ostream& out) {
    out << "\n## Codes of " << chain.name() << "s\n\n| code | what it does |\n|---|---|\n";
    for (const auto& row : chain.rows())
        out << "| `" << row.code << "` | " << codes::Describe(row) << " |\n";
}

}  // namespace

int Codes(const CodesCommand& command, Streams& streams) {
    const std::array chains = {&codes::MishapChain(), &codes::EventChain()};
    if (command.describe) {
        streams.out << kHandbook;
        for (const auto* const chain : chains)
            DescribeCodes(*chain, streams.out);
        return kSuccess;
    }
    Counter counter;
    std::map<std::string, std::uint64_t> errors;
    if (command.count > 0)
        LiveAll(command, counter, errors);
    for (const auto* const chain : chains)
        ListCodes(*chain, counter, command.count > 0, streams.out);
    for (const auto& [text, count] : errors)
        streams.out << count << " lives ended in a " << text << '\n';
    return kSuccess;
}

}  // namespace korvane::cli
