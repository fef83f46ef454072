// The life in one picture: what the strip tells, and that its drawing is sound whatever it is drawn of.

#include "output/life_strip.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "output/strip_layout.h"
#include "output/strip_svg.h"
#include "support/world.h"

namespace korvane {
namespace {

class Strip : public test::World {
  protected:
    Strip() {
        session.race.startingAge = 18;
        session.race.termYears = 4;
        character().Age = 18;
    }

    // Begins a term and writes what it brought.
    void Live(const std::vector<std::string>& lines) {
        if (!character().TermStarts.empty())
            character().Age += 4;
        character().TermStarts.push_back({character().Characteristic, {}, {}, {}, 0});
        AddHistory(session, character().TermStarts.size() == 1 ? "-- Term 1 --" : "------ Term ------");
        for (const auto& line : lines)
            AddHistory(session, line);
    }
    LifeStrip Told() { return StripOf(character(), session.race); }
};

TEST_F(Strip, TellsTermsMarksAndCurves) {
    character().CareersServed.Add("Merchant Marine");
    Live({"University: ", "Ally: Academic friend", "Graduated", "Enlist Merchant Marine Tramp"});
    character().Education = "University";
    character().Graduated = 1;
    Live({"Promoted to Mate", "Lost Eye or Limb; Purple Heart if appropriate", "Str reduced by 2 to 5"});
    SetCharacteristic(kStr, 5);
    Live({"Imprisoned; parole threshold 9", "You escape"});
    Live({"Ally betrays you, becomes an Enemy", "Edu 7 reduced by 1", "Int 7 reduced by 1, service pays for 75%",
          "Released!", "Transfer to Drifter Stowaway"});
    SetCharacteristic(kEdu, 6);
    Live({});
    const auto strip = Told();
    ASSERT_EQ(strip.blocks.size(), 5U);
    EXPECT_EQ(strip.blocks[0].words, "Term 1, age 18 to 22: University, graduated");
    EXPECT_EQ(strip.blocks[2].words, "Term 3, age 26 to 30: Merchant Marine") << "where the term began";
    EXPECT_EQ(strip.blocks[3].kind, BlockKind::Prison);
    EXPECT_EQ(strip.blocks[4].words, "Term 5, from age 34: Drifter") << "it isn't over";
    ASSERT_EQ(strip.marks.size(), 6U);
    const std::vector<std::string> words = {"Age 18: gained an ally: Academic friend",
                                            "Age 22: promoted to Mate",
                                            "Age 22: lost eye or limb",
                                            "Age 26: imprisoned",
                                            "Age 30: ally betrays you, becomes an Enemy",
                                            "Age 30: released from prison"};
    for (std::size_t i = 0; i < words.size(); ++i)
        EXPECT_EQ(strip.marks[i].words, words[i]);
    EXPECT_EQ(strip.marks[3].line, 10U);
    ASSERT_EQ(strip.curves.size(), 4U) << "the physical ones, and what age took from";
    EXPECT_EQ(strip.curves[0].values, (std::vector<int>{7, 7, 5, 5, 5, 5}));
    EXPECT_EQ(strip.curves[3].name, "Edu");
    EXPECT_EQ(strip.sentence,
              "A life of 34 years: University from 18 to 22, then Merchant Marine to 30, then Prisoner to 34, then "
              "Drifter; promoted once, injured once, imprisoned once; 1 friend and 1 foe gained; Str fell from 7 to 5, "
              "Edu fell from 7 to 6.");
}

TEST_F(Strip, KeepsTheTermsThatAFullHistoryDropped) {
    Live({"Enlist Navy Flight"});
    while (character().History.size() < kMostHistoryLines)
        AddHistory(session, "Admin-0");
    Live({});
    const auto strip = Told();
    ASSERT_EQ(strip.blocks.size(), 2U);
    EXPECT_EQ(strip.blocks[1].words, "Term 2, from age 22: no career noted");
    EXPECT_EQ(strip.blocks[1].line, 99U);
}

// ---- Drawings

// A strip of as many terms, with as many marks in each, whose careers change from one to the next and back.
LifeStrip Crowded(int terms, int marks) {
    LifeStrip strip;
    strip.sentence = "<\"&'>";
    for (int i = 0; i < terms; ++i) {
        strip.blocks.push_back({BlockKind::Career, 4 * i, 4 * i + 4, i % 2 == 0 ? "\"<&'>\x01" : "Navy", 0, "a<b"});
        for (int mark = 0; mark < marks; ++mark)
            strip.marks.push_back(
                {static_cast<MarkKind>(mark % kMarkKinds), 4 * i, static_cast<std::size_t>(i), 0, "&"});
    }
    strip.lastAge = 4 * terms;
    for (const auto* const name : {"Str", "<x>"})
        strip.curves.push_back({name, std::vector<int>(strip.blocks.size() + 1, 7)});
    return strip;
}

// Whether elements are closed in order, no text holds a sign of markup, and no element has anything but attributes.
bool IsWellFormed(std::string_view svg) {
    std::vector<std::string_view> open;
    while (!svg.empty()) {
        const auto [text, rest] = SplitFirst(svg, "<");
        const auto [element, after] = SplitFirst(rest, ">");
        if (text.find('>') != std::string_view::npos || std::ranges::count(element, '"') % 2 != 0 ||
            text.find_first_of("\x01\n") != std::string_view::npos)
            return false;
        for (auto signs = SplitAll(text, '&'); const auto sign : std::span(signs).subspan(1))
            if (sign.find(';') > 5)
                return false;
        const auto name = SplitFirst(element, " ").first;
        if (name.starts_with('/')) {
            if (open.empty() || open.back() != name.substr(1))
                return false;
            open.pop_back();
        } else if (!element.ends_with('/')) {
            open.push_back(name);
        }
        svg = after;
    }
    return open.empty();
}

bool Overlap(const StripSpot& a, const StripSpot& b) {
    constexpr double kTouch = 0.001;
    return a.x + kTouch < b.x + b.w && b.x + kTouch < a.x + a.w && a.y + kTouch < b.y + b.h && b.y + kTouch < a.y + a.h;
}

TEST(StripSvg, IsSoundForAnyLifeAndSize) {
    for (const int terms : {0, 1, 20})
        for (const int marks : {0, 1, 30})
            for (const double width : {60.0, 300.0, 1200.0}) {
                auto look = PageLook();
                look.width = width;
                const auto picture = DrawStrip(Crowded(terms, marks), look);
                SCOPED_TRACE(Concat(terms, " terms of ", marks, " marks"));
                EXPECT_TRUE(IsWellFormed(picture.svg)) << picture.svg;
                EXPECT_NE(picture.svg.find("<title>&lt;&quot;&amp;&#39;&gt;</title>"), std::string::npos);
                ASSERT_EQ(picture.spots.size(), static_cast<std::size_t>(terms * (1 + marks)));
                for (auto a = picture.spots.begin(); a != picture.spots.end(); ++a) {
                    EXPECT_TRUE(a->w > 0 && a->x >= 0 && a->x + a->w <= width && a->y >= 0 &&
                                a->y + a->h <= look.height);
                    EXPECT_TRUE(
                        std::none_of(a + 1, picture.spots.end(), [&](const auto& b) { return Overlap(*a, b); }));
                }
            }
}

TEST(StripSvg, ACareerKeepsItsColour) {
    const auto look = LightLook();
    const auto svg = DrawStrip(Crowded(5, 0), look).svg;
    std::size_t fills = 0;
    for (auto at = svg.find(look.blocks[0].fill); at != std::string::npos; at = svg.find(look.blocks[0].fill, at + 1))
        ++fills;
    EXPECT_EQ(fills, 6U) << "three blocks, each a shape and what the pointer meets";
}

TEST(StripSvg, MovesNamesApartWithinTheirBand) {
    std::vector<double> places = {95, 10, 96, 96};
    MoveApart(places, 10, 0, 100);
    EXPECT_EQ(places, (std::vector<double>{80, 10, 90, 100}));
}

// The contrast of two colours as "#1E57AB".
double Contrast(const std::string& one, const std::string& other) {
    const auto light = [](const std::string& colour) {
        const auto part = [&](std::size_t place) {
            const double share = std::stoi(colour.substr(place, 2), nullptr, 16) / 255.0;
            return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(1) + 0.7152 * part(3) + 0.0722 * part(5) + 0.05;
    };
    return std::max(light(one), light(other)) / std::min(light(one), light(other));
}

TEST(StripSvg, ItsLooksRead) {
    for (const auto& look : {LightLook(), DarkLook(), PageLook()}) {
        EXPECT_GE(look.blocks.size(), 8U);
        for (const auto& block : look.blocks)
            EXPECT_GE(Contrast(block.fill, block.text), 4.5) << block.fill;
        EXPECT_GE(Contrast(look.prison.fill, look.prison.text), 4.5);
        const auto grounds = look.ground.empty() ? Names{"#FFFFFF", "#1A1613"} : Names{look.ground};
        for (const auto& mark : look.marks)
            for (const auto& ground : grounds)
                EXPECT_GE(Contrast(mark, ground), 3) << mark << " on " << ground;
        if (look.ground.empty())
            continue;  // the texts have the page's colour
        EXPECT_GE(std::min(Contrast(look.text.colour, look.ground), Contrast(look.dim.colour, look.ground)), 4.5);
    }
}

}  // namespace
}  // namespace korvane
