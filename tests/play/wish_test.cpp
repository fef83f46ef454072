// Wishes: what they find is what a slow filter over the plain documents finds, and what is wrong is told at its place.

#include "play/wish.h"

#include <functional>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <random>

#include "output/character_document.h"
#include "play/life_plan.h"

namespace korvane::play {
namespace {

using Json = nlohmann::json;

class Wishes : public ::testing::Test {
  protected:
    std::string Fault(const std::string& text) {
        try {
            const Wish wish(text, known);
        } catch (const UsageError& error) {
            return error.what();
        }
        return "none";
    }

    Display display;
    Session session{DataFolder(HeldPath(KORVANE_RULES), DataFolder::Reading::Once), {nullptr, nullptr, &display}};
    const Vocabulary known = VocabularyOf(session);
};

// An expression, and what it means, told from the document alone.
struct Case {
    std::string text;
    std::function<bool(const Json&)> holds;
};

int LevelIn(const Json& document, const std::string& name) {
    int best = -1;
    for (const auto& skill : document["skills"]) {
        const auto held = skill["name"].get<std::string>();
        if (held == name || held.starts_with(name + " ("))
            best = std::max(best, skill["level"].get<int>());
    }
    return best;
}

class Cases {
  public:
    explicit Cases(unsigned seed) : chance_(seed) {}

    Case Make(int depth) {
        if (depth == 0 || Below(4) == 0)
            return Compared();
        auto one = Make(depth - 1);
        if (Below(4) == 0)
            return {"not (" + one.text + ")", [one](const Json& d) { return !one.holds(d); }};
        auto other = Make(depth - 1);
        if (Below(2) == 0)
            return {"(" + one.text + ") and (" + other.text + ")",
                    [one, other](const Json& d) { return one.holds(d) && other.holds(d); }};
        return {one.text + " or " + other.text, [one, other](const Json& d) { return one.holds(d) || other.holds(d); }};
    }

  private:
    int Below(int n) { return std::uniform_int_distribution(0, n - 1)(chance_); }
    template <typename Values>
    const auto& AnyOf(const Values& values) {
        return values[static_cast<std::size_t>(Below(static_cast<int>(std::size(values))))];
    }
    Case Compared() {
        switch (Below(4)) {
            case 0: {
                const std::string field = AnyOf(kFields);
                return Number(field, Below(60), [field](const Json& d) { return d[field].get<double>(); });
            }
            case 1: {
                const std::string skill = AnyOf(kSkills);
                return Number(skill, Below(4), [skill](const Json& d) -> double { return LevelIn(d, skill); });
            }
            case 2:
                return Number("Dex", Below(13),
                              [](const Json& d) { return d["characteristics"][1]["value"].get<double>(); });
            default: {
                const std::string career = AnyOf(kCareers);
                return {"was = \"" + career + "\"", [career](const Json& d) {
                            const auto& served = d["careersServed"];
                            return d["career"] == career ||
                                   std::find(served.begin(), served.end(), career) != served.end();
                        }};
            }
        }
    }
    Case Number(const std::string& name, int number, const std::function<double(const Json&)>& of) {
        const std::pair<const char*, bool (*)(double, double)> kComparisons[] = {
            {"<", [](double a, double b) { return a < b; }},  {"<=", [](double a, double b) { return a <= b; }},
            {">", [](double a, double b) { return a > b; }},  {">=", [](double a, double b) { return a >= b; }},
            {"=", [](double a, double b) { return a == b; }}, {"!=", [](double a, double b) { return a != b; }}};
        const auto [sign, compare] = AnyOf(kComparisons);
        return {name + " " + sign + " " + std::to_string(number),
                [of, number, compare = compare](const Json& d) { return compare(of(d), number); }};
    }

    static constexpr const char* kFields[] = {"age", "rank", "cash", "termsTotal", "enemies", "allies", "medicalDebt"};
    static constexpr const char* kSkills[] = {"Pilot", "Gun Combat", "Vacc Suit", "Admin", "Electronics (Comms)"};
    static constexpr const char* kCareers[] = {"Navy", "Scout", "Army", "Agent"};
    std::mt19937 chance_;
};

TEST_F(Wishes, FindWhatASlowFilterFinds) {
    std::vector<Case> cases;
    std::vector<Wish> wishes;
    Cases making(5);
    for (int i = 0; i < 100; ++i) {
        cases.push_back(making.Make(3));
        wishes.emplace_back(cases.back().text, known);
    }
    LifePlan plan;
    plan.seed = Seed(5);
    int some = 0;
    for (std::uint64_t number = 1; number <= 400; ++number) {
        if (!Live(session, plan, number).finished())
            continue;
        const auto document = Json::parse(CharacterDocument(session));
        for (std::size_t i = 0; i < cases.size(); ++i) {
            ASSERT_EQ(wishes[i].Fits(session), cases[i].holds(document)) << cases[i].text << "\n" << document.dump();
            some += wishes[i].Fits(session) ? 1 : 0;
        }
    }
    EXPECT_GT(some, 4000);
    EXPECT_LT(some, 36000);
}

TEST_F(Wishes, KnowPrisonAndDriftingThoughTheyAreNotRecorded) {
    LifePlan plan;
    plan.seed = Seed(5);
    const Wish prisoner("was = Prisoner", known);
    const Wish drifter("was = drifter", known);
    int prisoners = 0;
    int drifters = 0;
    for (std::uint64_t number = 1; number <= 400; ++number) {
        Live(session, plan, number);
        const auto lines = session.character.History.lines();
        const auto has = [&](std::string_view beginning) {
            return std::ranges::any_of(lines, [&](const auto& line) { return line.starts_with(beginning); });
        };
        EXPECT_EQ(prisoner.Fits(session), has("Imprisoned; ")) << number;
        prisoners += prisoner.Fits(session) ? 1 : 0;
        drifters += drifter.Fits(session) && has("Enlist Drifter") ? 1 : 0;
    }
    EXPECT_TRUE(prisoners > 0 && drifters > 0);
}

TEST_F(Wishes, FaultsAreToldAtTheirPlaces) {
    EXPECT_EQ(Fault("age > 30 and Pilto >= 2"),
              "a wish is wrong: nothing is called \"Pilto\"; did you mean \"Pilot\"?\n"
              "    age > 30 and Pilto >= 2\n"
              "                 ^");
    const std::pair<const char*, const char*> faults[] = {
        {"carrer = Navy", "did you mean \"career\"?"},
        {"was = Nvay", "no career is called \"Nvay\"; did you mean \"Navy\"?"},
        {"career > Navy", "it is = or != another"},
        {"age", "a comparison is missing"},
        {"age > ", "a whole number is missing"},
        {"age > 99999999999999999999", "a whole number is missing"},
        {"age => 3", "a whole number is missing"},
        {"age ! 3", "is no comparison"},
        {"(age > 3", "the bracket has no end"},
        {"age > 3)", "is missing before \")\""},
        {"age > 3 rank > 2", "is missing before \"rank\""},
        {"not", "a name is missing"},
        {"", "a name is missing"},
        {"benefit = \"Ship", "the quotation has no end"},
        {"Gun Combat ( Slug ) > 0", "nothing is called"},
        {"\"Gun Combat (Slug\" > 0", "nothing is called"},
        {"Gun Combat (Slugs) > 0", "did you mean \"Gun Combat (Slug)\"?"}};
    for (const auto& [text, told] : faults)
        EXPECT_NE(Fault(text).find(told), std::string::npos) << text << ": " << Fault(text);
    for (const auto* const right : {"NOT age > 3 OR Rank=2", "Gun Combat (Slug) >= 1", "\"Gun Combat (Slug)\" < 1",
                                    "benefit = Ship's Boat or education = University", "Vacc Suit>=0"})
        EXPECT_EQ(Fault(right), "none") << right;
}

}  // namespace
}  // namespace korvane::play
