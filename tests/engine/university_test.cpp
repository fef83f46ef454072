// The course at university.

#include "engine/code_cases.h"
#include "engine/education.h"
#include "engine/term_loop.h"

namespace korvane {
namespace {

using test::kAnswer;
using test::Question;

// clang-format off

// Cases by the roll of admission.
class University : public test::Cases {
  protected:
    University() {
        Give("Terms=1, CareerTerms=1");
        firstLine = "University: ";
    }
    void Act() override { AttendUniversity(session); }
    // A subject by its place in the list, -1 for none.
    static Question Subject(const std::string& level, int pick) {
        std::string items;
        for (const std::string name : {"Admin", "Advocate", "Animals (Training)", "Animals (Veterinary)", "Art", "Astrogation", "Electronics", "Engineer",
                                       "Language", "Medic", "Navigation", "Profession", "Science"})
            items += (items.empty() ? "" : "/") + name + "-" + level;
        return Listed("Select Level " + level + " Skill", items, pick);
    }
    // The rolls of a course after its subjects: an event of nothing, or a war that ends it, and graduation.
    static std::vector<test::Die> Movement(int graduation) { return {kAnswer, kAnswer, TwoD6(8), TwoD6(2), TwoD6(graduation)}; }
    static std::vector<test::Die> War() { return {kAnswer, kAnswer, TwoD6(11), TwoD6(2), D6(6)}; }

    const std::vector<Question> none = {Subject("0", -1), Subject("1", -1)}, both = {Subject("0", 1), Subject("1", 10)};
    const std::string movement = "Edu +1 | You join a political movement. | ", war = "Edu +1 | War comes, drafted to Navy | ";
};

TEST_F(University, AdmitsByTermsAndStandingAndTheSixthCharacteristicsModifier) {
    const std::vector<std::pair<std::string, int>> applicants = {{"Terms=0", 7}, {"Terms=1, Soc=8", 7}, {"Terms=2, Edu=15", 8}, {"Terms=3", 9}, {"Terms=4", 7},
                                                                 {"Terms=1, Soc=9", 5}, {"Terms=3, Soc=9", 7}, {"Terms=1, Soc=24", 6}};
    for (const auto& [given, least] : applicants)
        Play({{Concat(least - 1), given + ", Graduated=2", {}, {}, "Rejected"},
              {Concat(least), given + ", Graduated=2, Edu=7", none, War(), war + "Failed", "Edu+1"}});
}

TEST_F(University, TeachesTwoSubjectsWhichGraduationRaises) {
    const auto art = Of("Select Specialty for Art", "Dance/Song/Pick Later");
    Play({
        {"7", "", both, Movement(6),  "Admin-0 | Medic-1 | " + movement + "Failed", "Edu+1"},
        {"7", "", both, Movement(10), "Admin-0 | Medic-1 | " + movement + "Graduated | Admin-1 | Medic-3 | Edu +2", "Edu+3 EduDM=1 Graduated=1"},
        {"7", "", both, Movement(11), "Admin-0 | Medic-1 | " + movement + "Graduated (Hons) | Admin-1 | Medic-3 | Edu +2", "Edu+3 EduDM=1 Graduated=2"},
        {"7", "Int=15", both, Movement(6), "Admin-0 | Medic-1 | " + movement + "Failed", "Edu+1"},
        {"7", "", both, War(), "Admin-0 | Medic-1 | " + war + "Failed", "Edu+1"},
        {"7", "Soc=9, Admin=3, Medic=2", both, Movement(6), "Admin-3 | Medic-3 | " + movement + "Graduated | Admin-4 | Medic-5 | Edu +2", "Edu+3 EduDM=1 Graduated=1"},
        {"7", "", {Subject("0", 13), Subject("1", 13)}, {kAnswer, kAnswer, TwoD6(10), TwoD6(9), TwoD6(7)}, "Science-0 | Science-1 | Edu +1 | A newly arrived tutor rubs you up the "
              "wrong way and you work hard to overturn their conclusions, and succeed. Gain a Rival | Rival: Tutor proved wrong | Science-2 | Graduated | Science-3 | Science-5 | Edu +2",
              "Edu+3 EduDM=1 Graduated=1 Rivals+1"},
        {"7", "", {Subject("0", -1), Subject("1", 10)}, Movement(7), "Medic-1 | " + movement + "Graduated | Medic-3 | Edu +2", "Edu+3 EduDM=1 Graduated=1"},
        {"7", "", {Subject("0", 1), Subject("1", -1)}, Movement(7), "Admin-0 | " + movement + "Graduated | Admin-1 | Edu +2", "Edu+3 EduDM=1 Graduated=1"},
    });
    session.choice.LastSkillGranted = "Steward-1";
    character().UniversitySubject = "Broker-1";
    Play({{"7", "", none, {TwoD6(10), TwoD6(9), TwoD6(2)}, "Edu +1 | A newly arrived tutor rubs you up the wrong way and you work hard to overturn their conclusions, and succeed. "
                "Gain a Rival | Rival: Tutor proved wrong | Failed", "Edu+1 Rivals+1"}});
    session.race.specialities = {{"Art", {"Dance", "Song"}}};
    Play({{"7", "", {Subject("0", 5), Subject("1", 4), art(2)}, {kAnswer, kAnswer, TwoD6(8), TwoD6(2), TwoD6(7), kAnswer}, "Art-0 | Animals (Veterinary)-1 | " + movement +
                "Graduated | Art (Song)-1 | Animals (Veterinary)-3 | Edu +2", "Edu+3 EduDM=1 Graduated=1"}});
}

TEST_F(University, GraduatesWhoeverIsForcedToButGivesHonoursByTheRollAlone) {
    Tick(Option::ForceAcademicSuccess);
    auto rolls = War();
    for (const int graduation : {2, 10, 11}) {
        const auto line = war + (graduation < 11 ? "Graduated" : "Graduated (Hons)"), numbers = Concat("Edu+3 EduDM=1 Graduated=", graduation < 11 ? 1 : 2);
        rolls.resize(5, kAnswer);
        rolls.push_back(TwoD6(graduation));
        Play({{"2", "Terms=3", both, rolls, "Success forced | Admin-0 | Medic-1 | " + line + " | Admin-1 | Medic-3 | Edu +2", numbers}});
    }
}

TEST_F(University, MayBeFinishedInPrison) {
    Give("Terms=0, CareerTerms=0, Benefits=0, Bonus=0");
    session.career.cashBenefit[2] = 4321;
    player.ExpectChoice("Select Pre-Career Education", "Enlist Immediately/University/Military Academy", 2);
    player.ExpectList("Select Level 0 Skill", both[0].options, {1}).ExpectList("Select Level 1 Skill", both[1].options, {10});
    player.ExpectTell(test::kPrisonNotice).ExpectMuster(MusterButton::Cash).ExpectMuster(MusterButton::Done).ExpectScrap();
    dice.Expect({TwoD6(7), TwoD6(4), TwoD6(2), D6(2), D6(5), TwoD6(7), TwoD6(12)});
    EXPECT_EQ(RunLife(session), LifeEnd::Scrapped) << "at the skill tables of the first term of service";
    EXPECT_EQ(test::Joined(History()).substr(0, 270),
              "-- Term 1 -- | University:  | Admin-0 | Medic-1 | Edu +1 | A supposedly harmless prank goes wrong and someone gets hurt, physically or emotionally. | "
              "Enemy: Academic Prank | Imprisoned; parole threshold 9 | Graduated | Admin-1 | Medic-3 | Edu +2 | Enlist Prisoner Inmate");
    EXPECT_EQ(Concat(character().Cash, " ", character().CareersServed.size()), "4321 0") << "mustered out of the career selected";
}

// clang-format on

}  // namespace
}  // namespace korvane
