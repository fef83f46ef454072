// The event of a course, by the total of its roll.

#include "engine/code_cases.h"
#include "engine/courses.h"

namespace korvane {
namespace {

class EducationEvents : public test::Cases {
  protected:
    EducationEvents() { character().UniversitySubject = "Medic-1"; }
    void Act() override {
        completion = 1;
        RollEducationEvent(session, completion);
        RecomputeCharacteristicDMs(character());  // as they are when they are next shown
    }
    std::string End() override {
        const bool psi = CharacteristicSlot(character(), "psi") == kPsi;
        return Cases::End() + (psi ? "psi" : "") + (completion == 1 ? "" : "lost");
    }
    int completion = 1;
};

TEST_F(EducationEvents, ByTheirTotals) {
    // clang-format off
    const auto offer = Yes("Approached by illegal psionic group. Accept Testing?");
    const std::string found = "Approached by illegal psionic group, tested and PSI ", transfer = " discovered. You may transfer to Psion at the end of any subsequent term";
    const std::string prank = "A supposedly harmless prank goes wrong and someone gets hurt, physically or emotionally. | ";
    const std::string tutor = "A newly arrived tutor rubs you up the wrong way and you work hard to overturn their conclusions";
    Play({
        {"2",  "", {No(offer.text)}, {}, "Approached by illegal psionic group, turned them down"},
        {"2",  "", {offer, Notice(found + "9" + transfer)}, {TwoD6(12)}, found + "9 discovered", "PSI=9 PSIDM=1 Slots=7", "psi"},
        {"2",  "Slots=9, PSI=14", {offer, Notice(found + "1" + transfer)}, {TwoD6(4)}, found + "1 discovered", "PSI=1 PSIDM=-2 Slots=7", "psi"},
        {"2",  "", {offer}, {TwoD6(3)}, "Approached by illegal psionic group, test shows no latent PSI power"},
        {"3",  "", {}, {}, "Your time in education is not a happy one and you suffer a deep tragedy; perhaps you become hopelessly addicted to drink or drugs, a failed "
                           "romance leaves you in tatters, or a fatal accident involving a close friend shakes your confidence. You crash and fail to graduate.", "", "lost"},
        {"4",  "", {}, {TwoD6(8)}, prank + "Rival: Academic Prank", "Rivals+1"},
        {"4",  "Soc=9", {}, {TwoD6(7)}, prank + "Rival: Academic Prank", "Rivals+1"},
        {"4",  "", {}, {TwoD6(7)}, prank + "Enemy: Academic Prank", "Enemies+1"},
        {"4",  "Soc=2", {}, {TwoD6(3)}, prank + "Enemy: Academic Prank", "Enemies+1"},
        {"4",  "Soc=2", {prison}, {TwoD6(4), D6(6)}, prank + "Enemy: Academic Prank | Imprisoned; parole threshold 10",
                        "Enemies+1 Parole=10 CareerTerms=0 Benefits=0 Rolls=-8", "Prisoner Inmate"},
        {"5",  "", {}, {}, "Taking advantage of youth, you party as much as you study. Gain Carouse 1. | Carouse-1"},
        {"5",  "Carouse=2", {}, {}, "Taking advantage of youth, you party as much as you study. Gain Carouse 1. | Skill Carouse=1 already held"},
        {"6",  "", {}, {test::Rolled(1, 3, 2)}, "You become involved in a tightly knit clique or group and make a pact to remain friends forever, wherever in the galaxy you may end. "
                                          "Gain D3 Allies. | Ally: Academic friend | Ally: Academic friend", "Allies+2"},
        {"7",  "", {}, {TwoD6(9)}, "Life", "Qualification+1"},
        {"8",  "", {}, {TwoD6(7)}, "You join a political movement."},
        {"8",  "Soc=9", {}, {TwoD6(7)}, "You join a political movement, and become a leading figure. | Ally: Political Movement | Enemy: Outside of Political Movement", "Allies+1 Enemies+1"},
        {"9",  "", {anySkillAtZero}, {}, "You develop a healthy interest in a hobby or other area of study. Gain any skill of your choice, with the exception of Jack-of-all-Trades, at level 0. | *"},
        {"10", "Medic=4", {}, {TwoD6(10)}, tutor + ". But fail."},
        {"10", "Medic=1", {}, {TwoD6(9)}, tutor + ", and succeed. Gain a Rival | Rival: Tutor proved wrong | Medic-2", "Rivals+1"},
        {"11", "Soc=9", {}, {TwoD6(8)}, "War breaks out but you pull some strings and are not drafted"},
        {"11", "", {}, {TwoD6(8), D6(3)}, "War comes, drafted to Army", "", "lost"},
        {"11", "", {}, {TwoD6(8), D6(4)}, "War comes, drafted to Marine", "", "lost"},
        {"11", "", {}, {TwoD6(8), D6(5)}, "War comes, drafted to Marine", "", "lost"},
        {"11", "", {}, {TwoD6(8), D6(6)}, "War comes, drafted to Navy", "", "lost"},
        {"12", "", {}, {}, "You gain wide-ranging recognition of your initiative and innovative approach to study. Increase your SOC by +1. | Soc +1", "Soc+1"},
    });
    character().UniversitySubject.clear();
    Play({{"10", "", {}, {TwoD6(9)}, tutor + ", and succeed. Gain a Rival | Rival: Tutor proved wrong", "Rivals+1"}});
    // clang-format on
}

}  // namespace
}  // namespace korvane
