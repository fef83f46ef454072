#include "play/balance.h"

#include <ostream>
#include <string>
#include <vector>

#include "cli/balance_figures.h"
#include "cli/balance_page.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "output/json_writer.h"

namespace korvane::cli {

namespace {

using play::RaceFigures;

void PrintText(const std::vector<RaceFigures>& all, std::ostream& out) {
    for (const auto& race : all) {
        out << race.race << '\n';
        for (const auto& [place, figures] : race.places) {
            out << "  " << place.first << ", " << place.second << ": ";
            for (const auto& column : BalanceColumns())
                out << column.heading << ' ' << column.value(figures)
                    << (&column == &BalanceColumns().back() ? "\n" : ", ");
        }
        out << "  prison: free within five terms " << Rounded(race.prison.freeWithinFive.percent(), 1) << " % of "
            << race.prison.freeWithinFive.of << " stays, longest " << race.prison.longest << " terms; oldest character "
            << race.oldest << " years\n";
    }
}

void PrintJson(const std::vector<RaceFigures>& all, std::ostream& out) {
    std::string text;
    JsonWriter json(text);
    json.BeginArray();
    for (const auto& race : all)
        for (const auto& [place, figures] : race.places) {
            json.BeginObject();
            json.Key("race").Text(race.race);
            json.Key("career").Text(place.first);
            json.Key("assignment").Text(place.second);
            for (const auto& column : BalanceColumns())
                json.Key(column.heading).Text(column.value(figures));
            json.EndObject();
        }
    json.EndArray();
    out << text << '\n';
}

}  // namespace

int MeasureBalance(const BalanceCommand& command, Streams& streams) {
    Display display;
    Session session(DataFolder(RuleFolder(command.data), DataFolder::Reading::Once), {nullptr, nullptr, &display});
    std::string assignment;
    auto race = command.race;
    auto career = command.career;
    KnowNames(session.data.location(), race, career, assignment);
    const auto all =
        play::MeasureBalance(session, {race, career, command.count, command.terms, command.seed.value_or(Seed(1))});
    if (!command.outFolder.empty())
        WriteBalancePage(command, all);
    else if (command.format == Format::Json)
        PrintJson(all, streams.out);
    else
        PrintText(all, streams.out);
    return kSuccess;
}

}  // namespace korvane::cli
