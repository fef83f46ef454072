// The states of the main window's controller, and what is in view in each.

#include "desktop/generation_controller.h"

#include "play/life.h"
#include "play/players.h"
#include "support/world.h"

namespace korvane {
namespace {

using State = GenerationController::State;

class Controller : public test::World {
  protected:
    Controller() {
        session.seams.display = &controller;
        play::Select(session, "Imperial Human", "Army", "Infantry");
        controller.Roll(RollingMethod::True2D);
        session.race.backgroundSkillCount = 0;
        session.character.QualificationDM = kAutomaticSuccess;
    }
    // The first term of service, up to the given dice, that ends in the player's answer.
    void Begin() {
        player.ExpectChoice("Select Pre-Career Education", "Enlist Immediately/University/Military Academy", 1);
    }

    SeededDice anyDice{1, 1};
    GenerationController controller{session, anyDice, player};
};

TEST_F(Controller, KeepsTheEndedCharacterUntilTheNextStart) {
    EXPECT_EQ(controller.state(), State::Idle);
    Begin();
    player.ExpectScrap();
    EXPECT_EQ(controller.StartCareer({}), LifeEnd::Scrapped);
    EXPECT_EQ(controller.state(), State::Ended);
    EXPECT_EQ(controller.shown().History.lines().front(), "-- Term 1 --");
    EXPECT_EQ(session.character.TermsTotal, 0) << "the session's is the next one";
    controller.Roll(RollingMethod::True2D);
    EXPECT_FALSE(controller.shown().History.empty()) << "still in view";
    controller.ScrapAndRestart();
    EXPECT_EQ(controller.state(), State::Idle);
    EXPECT_TRUE(controller.shown().History.empty());
}

TEST_F(Controller, AFailedLifeStaysToBeReadAndARollBeginsAnew) {
    session.career.qualification = "Str        5+";
    Begin();
    EXPECT_THROW(controller.StartCareer({}), RuleError);
    EXPECT_EQ(controller.state(), State::Failed);
    EXPECT_FALSE(controller.shown().History.empty());
    controller.TakeChanges();
    controller.Roll(RollingMethod::True2D);
    EXPECT_EQ(controller.state(), State::Idle);
    const auto changes = controller.TakeChanges();
    EXPECT_TRUE(changes.history && changes.skills && changes.summary) << "nothing of the failed life stays in view";
    const auto rolled = session.character.Characteristic.all();
    session.career.qualification = "Str 5";
    Begin();
    player.ExpectScrap();
    controller.StartCareer({});
    EXPECT_EQ(controller.ended()->record.Characteristic.all()[1], rolled[1])
        << "the rolled character isn't thrown away";
}

TEST_F(Controller, APrisonersEndOffersTheCareerThatWasChosen) {
    play::PolicyPlayer policy(session, RandomStream(1), 4);
    controller.life().UsePlayer(policy);
    session.options.Set(Option::AutomaticGeneration);
    int prisoners = 0;
    for (int life = 0; life < 500 && prisoners < 3; ++life) {
        play::Select(session, "Imperial Human", "Drifter", "Stowaway");
        controller.Roll(RollingMethod::True2D);
        controller.StartCareer({});
        if (controller.ended()->selection.career != "Prisoner")
            continue;
        ++prisoners;
        EXPECT_EQ(session.selection.career + "/" + session.selection.assignment, "Drifter/Stowaway");
    }
    EXPECT_EQ(prisoners, 3);
}

}  // namespace
}  // namespace korvane
