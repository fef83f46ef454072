// Texts: numbers read leniently and strictly, amounts and numbers written, characters counted, letters compared.

#include "base/text.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

template <typename Value>
using Cases = std::vector<std::pair<std::string_view, Value>>;

TEST(Text, LenientNumberTakesWhatCanBeANumberAndNoMore) {
    const Cases<double> cases = {
        {"7+", 7},         {"12+", 12},    {" 1 2 3 ", 123}, {" - 5", -5},   {"+4", 4},   {".5", 0.5},   {"5.", 5},
        {"-2.25x", -2.25}, {"1.5E2", 150}, {"25e-1", 2.5},   {"1 e 2", 100}, {"3E", 3},   {"3E+", 3},    {"4 years", 4},
        {"1,000", 1},      {"1..5", 1},    {"", 0},          {"   ", 0},     {"-", 0},    {".", 0},      {"E5", 0},
        {"+-5", 0},        {"Cr500", 0},   {"inf", 0},       {"nan", 0},     {"0x10", 0}, {"1e-999", 0}, {"007", 7}};
    for (const auto& [text, number] : cases)
        EXPECT_EQ(LenientNumber(text), number) << '"' << text << '"';
}

TEST(Text, CountsRoundHalvesToEvenAndHold16Bits) {
    const Cases<int> cases = {{"2.5", 2},  {"3.5", 4}, {"-2.5", -2},       {"-3.5", -4},
                              {"2.51", 3}, {"no", 0},  {"32767.4", 32767}, {"-32768.5", -32768}};
    for (const auto& [text, number] : cases)
        EXPECT_EQ(LenientCount(text), number) << '"' << text << '"';
    for (const auto* text : {"32767.5", "32768", "-32769", "1E9", "65536", "4294967297", "1E30", "-1E999"})
        EXPECT_THROW(LenientCount(text), RuleError) << text;
}

TEST(Text, StrictCountIsDigitsWithASignAndBlanksAround) {
    for (const auto& [text, number] : Cases<int>{{" 12 ", 12}, {"-3", -3}, {"+4", 4}, {"007", 7}})
        EXPECT_EQ(StrictCount(text), number) << '"' << text << '"';
    for (const auto* text : {"", "  ", "-", "1-0", "1.0", "1E2", "1 2", "- 1", "--1", "one", "Drive)", "32768"})
        EXPECT_THROW(StrictCount(text), RuleError) << '"' << text << '"';
}

TEST(Text, CharactersAreCountedNotBytes) {
    EXPECT_EQ(CharacterCount("Größe €𝄞"), 8U);
    EXPECT_EQ(AfterCharacters("äöü12", 3), "12");
    EXPECT_EQ(FirstCharacters("€äb", 2), "€ä");
    EXPECT_EQ(Concat(AfterCharacters("ä", 9), FirstCharacters("€", 9)), "€") << "shorter texts";
    EXPECT_EQ(CharacterPosition("Éàü 7+ +", '+'), 6U);
    EXPECT_EQ(CharacterPosition("Edu 7", '+'), 0U);
    EXPECT_EQ(LettersOnly("Jo-Ann 2nd @[`{azAZ_Zoë"), "JoAnnndazAZZo");
}

TEST(Text, ComparisonsDisregardTheCaseOfLettersAlone) {
    EXPECT_TRUE(EqualsIgnoringCase("eDu", "Edu") && !EqualsIgnoringCase("Ed", "Edu") && !EqualsIgnoringCase("[", "{"));
    EXPECT_TRUE(BeginsIgnoringCase("DATALOC=C", "dataloc") && !BeginsIgnoringCase("data", "dataloc"));
    EXPECT_TRUE(EndsIgnoringCase("ELF.ERI", ".eri") && !EndsIgnoringCase("eri", ".eri"));
    EXPECT_TRUE(LessIgnoringCase("admin", "Broker") && !LessIgnoringCase("Broker", "admin"));
    EXPECT_TRUE(LessIgnoringCase("GUN", "gun Combat") && !LessIgnoringCase("ART", "art"));
}

}  // namespace
}  // namespace korvane
