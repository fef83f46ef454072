// The way into a career.

#include "engine/enlistment.h"

#include "support/temp_folder.h"
#include "support/world.h"

namespace korvane {
namespace {

using test::Rolled;
using Lines = std::vector<std::string>;

class Enlistment : public test::World {
  protected:
    // Drafts by a die, and picks an assignment where one is asked for. Tells where the character is then.
    std::string DraftBy(int die, int pick, const std::string& question = "", const std::string& assignments = "") {
        dice.Expect({Rolled(1, 6, die)});
        if (session.Automatic() && !question.empty())
            dice.Expect({test::Drawn(3, pick - 1)});
        else if (!question.empty())
            player.ExpectChoice("Pick " + question + " Assignment for Draft", assignments, pick);
        Draft(session);
        ExpectScriptsDone();
        return Concat(session.selection.career, "/", session.selection.assignment, " ", session.assignment.survival);
    }
    // Enlists with a roll of 7 and a modifier; who is rejected meets a draft that has nothing to offer.
    void ExpectQualified(bool expected, int modifier) {
        character().QualificationDM = modifier;
        character().History.Clear();
        dice.Expect({Rolled(2, 6, 7)});
        if (!expected)
            dice.Expect({Rolled(1, 6, 6)});
        Qualify(session);
        const auto line = "Enlist Army " + session.selection.assignment;
        EXPECT_EQ(History(), expected ? Lines{line} : (Lines{line, "Rejected; Draft"}));
        EXPECT_EQ(character().QualificationDM, 0);
        ExpectScriptsDone();
    }
};

TEST_F(Enlistment, OnlyATitledImperialHumanIsSureOfTheNobility) {
    session.selection.careers = std::make_shared<const Names>();
    session.career.qualification = "Str 9+";
    ExpectQualified(true, 2);
    ExpectQualified(false, 1);
    session.selection.assignment = "Noble";
    SetCharacteristic(kSoc, 9);
    ExpectQualified(false, 0);
    SetCharacteristic(kSoc, 10);
    ExpectQualified(true, -60);  // the title sets the modifier
    session.selection.race = "Human";
    ExpectQualified(false, 0);
}

TEST_F(Enlistment, EachFaceDraftsIntoItsService) {
    session.race.draftTable[6] = "The constables";
    for (const bool automatic : {false, true}) {
        session.options.Set(Option::AutomaticGeneration, automatic);
        EXPECT_EQ(DraftBy(1, 1, "Naval", "Engineer Gunner/Flight/Line Crew"), "Navy/Engineer Gunner Dex 6+");
        EXPECT_EQ(DraftBy(2, 3, "Army", "Cavalry/Infantry/Support"), "Army/Support Int 5+");
        EXPECT_EQ(DraftBy(3, 3, "Marine", "Ground Assault/Star Marine/Support"), "Marine/Support Edu 6+");
        EXPECT_EQ(DraftBy(4, 1), "Merchant/Merchant Marine End 5+");
        EXPECT_EQ(DraftBy(5, 2, "Scout", "Courier/Explorer/Surveyor"), "Scout/Explorer Int 7+");
        EXPECT_EQ(DraftBy(6, 1), "Agent/Law Enforcement Dex 6+");
    }
    EXPECT_EQ(History().at(3), "Drafted to Army/Infantry") << "the race's own entry, whatever was picked";
    EXPECT_EQ(History().at(11), "Drafted to The constables");
    EXPECT_TRUE(character().CareersServed.empty()) << "a draft is no entry of its own";
}

TEST_F(Enlistment, WhatIsNotThereLeavesTheCareerOrItsFirstAssignment) {
    const test::TempFolder folder;
    folder.CopyRules();
    std::filesystem::remove(folder.path() / "Imperial Human-Scout-Surveyor.eas");
    session.data = DataFolder(folder.held());
    session.selection.careers = std::make_shared<const Names>(Names{"Army", "Scout"});
    EXPECT_EQ(DraftBy(3, 1, "Marine", "Ground Assault/Star Marine/Support"), "Army/Infantry End 6+");
    EXPECT_EQ(DraftBy(3, 3, "Marine", "Ground Assault/Star Marine/Support"), "Army/Support Int 5+") << "it has one too";
    EXPECT_EQ(History(), (Lines{"Rejected; Draft", "Rejected; Draft"}));
    EXPECT_EQ(DraftBy(5, 3, "Scout", "Courier/Explorer/Surveyor"), "Scout/Courier Dex 5+");
}

TEST_F(Enlistment, CareersServedAreEntriesUpToTen) {
    for (const auto* const career : {"Drifter", "A", "Prisoner", "B", "A", "4", "5", "6", "7", "8", "9", "10", "11"})
        RecordCareerServed(session, career);
    const auto served = character().CareersServed.lines();
    EXPECT_EQ(Lines(served.begin(), served.end()), (Lines{"A", "B", "A", "4", "5", "6", "7", "8", "9", "10"}));
}

}  // namespace
}  // namespace korvane
