#include "engine/names.h"

#include <algorithm>
#include <array>
#include <vector>

#include "skills/choice.h"

namespace korvane {

namespace {

std::string_view DrawSyllable(Session& session, const std::vector<Syllable>& syllables) {
    const int drawn = session.seams.dice->Draw(syllables.back().end);
    return std::ranges::find_if(syllables, [&](const Syllable& syllable) { return drawn < syllable.end; })->text;
}

// The name with its first letter in capitals, be it plain or one of the accented letters of Western Europe.
std::string Capitalised(std::string name) {
    constexpr char kLead = '\xC3';
    const auto is_between = [](char c, unsigned first, unsigned last) {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= first && byte <= last && byte != 0xB7;  // the sign of division stands among the letters
    };
    const bool accented = name.size() > 1 && name[0] == kLead;
    if (!name.empty() && (accented ? is_between(name[1], 0xA0, 0xBE) : is_between(name[0], 'a', 'z')))
        name[accented ? 1 : 0] = static_cast<char>(name[accented ? 1 : 0] - 0x20);
    return name;
}

}  // namespace

std::string RollNameOf(Session& session) {
    const auto& names = session.data.NamesOfRaces();
    if (!names)
        return {};
    const auto& table = NameTableFor(*names, session.race.kind, session.race.name);
    std::string given;
    std::string family;
    for (std::size_t part = 0; part < kNameParts; ++part)
        AppendAll(part < kGivenParts ? given : family, DrawSyllable(session, table.parts.at(part)));
    auto name = Capitalised(std::move(given));
    if (!family.empty())
        AppendAll(name, " ", Capitalised(std::move(family)));
    return name;
}

std::optional<std::string> RollName(Session& session) {
    constexpr int kOffered = 10;
    if (!session.data.NamesOfRaces()) {
        Tell(session, "Names.dat is missing from the data folder, so there are no names to choose from");
        return std::nullopt;
    }
    while (true) {
        std::array<std::string, kOffered> names;
        for (auto& name : names)
            name = RollNameOf(session);
        std::vector<std::string_view> options(names.begin(), names.end());
        options.emplace_back("(Roll Again)");
        const int place = ChooseOrLeave(session, "Select Character Name", options).place;
        if (place == 0)
            return std::nullopt;
        if (place <= kOffered)
            return names.at(static_cast<std::size_t>(place - 1));
    }
}

}  // namespace korvane
