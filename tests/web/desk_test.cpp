// What a page asks of the engine: a life lived request by request, and what is asked beside it.

#include "web/desk.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "cli/run_cli.h"
#include "support/temp_folder.h"

namespace korvane::web {
namespace {

using Json = nlohmann::ordered_json;

class DeskTest : public ::testing::Test {
  protected:
    Json Ask(const Json& request) { return Json::parse(desk.Answer(request.dump())); }
    Json Begin(const std::string& seed = "friday", std::uint64_t number = 1) {
        return Ask({{"do", "step"},
                    {"race", "Imperial Human"},
                    {"career", "Scout"},
                    {"assignment", "Courier"},
                    {"method", "True 2D "},
                    {"options", {"Force no Ejection on Mishap"}},
                    {"seed", seed},
                    {"number", number}});
    }
    Json Answer(const Json& state, const Json& answer) {
        return Ask({{"do", "step"}, {"journal", state["journal"]}, {"answer", answer}, {"backs", state["backs"]}});
    }
    // The first answer that there is, three terms, then out.
    static Json FirstAnswer(const Json& question) {
        const auto kind = question["kind"].get<std::string>();
        if (kind == "select") {
            Json marked = Json::array();
            for (int i = 1; i <= question["maximum"].get<int>(); ++i)
                marked.push_back(i);
            return marked;
        }
        if (kind == "ask")
            return true;
        if (kind == "end of term")
            return {{"choice", question["terms"] < 4 ? 1 : 3}, {"options", question["options"]}};
        if (kind == "transfer")
            return nullptr;
        if (kind == "muster") {
            const auto& enabled = question["enabled"];
            return {{"press", std::find(enabled.begin(), enabled.end(), true) - enabled.begin()}};
        }
        int place = 1;
        if (kind == "table")
            while (!question["columns"][static_cast<std::size_t>(place - 1)]["enabled"])
                ++place;
        return place;
    }
    Json LiveToTheEnd(Json state) {
        while (state.contains("question"))
            state = Answer(state, FirstAnswer(state["question"]));
        return state;
    }

    Desk desk{KORVANE_SHIPPED_RULES};
};

TEST_F(DeskTest, ALifeOfOneAnswerARequestIsProvedAndTheSame) {
    const auto end = LiveToTheEnd(Begin());
    ASSERT_EQ(end["end"], "mustered out") << end.dump().substr(0, 300);
    EXPECT_EQ(Ask({{"do", "verify"}, {"journal", end["journal"]}})["verdict"], "proved");
    EXPECT_EQ(LiveToTheEnd(Begin())["journal"], end["journal"]);
    EXPECT_NE(LiveToTheEnd(Begin("friday", 2))["journal"], end["journal"]);
    const auto again = Ask({{"do", "step"}, {"journal", end["journal"]}});
    EXPECT_EQ(again["journal"], end["journal"]) << "one that is finished stays as it is";
    EXPECT_FALSE(again["history"].empty());
    EXPECT_TRUE(again["strip"].get<std::string>().starts_with("<svg"));
}

TEST_F(DeskTest, BackGivesWhatWasCutAndItLeadsForwardAgain) {
    auto state = Begin();
    std::vector<Json> states;
    for (int i = 0; i < 4; ++i) {
        states.push_back(state);
        state = Answer(state, FirstAnswer(state["question"]));
    }
    const auto back = Ask({{"do", "step"}, {"journal", state["journal"]}, {"back", 2}, {"backs", 1}});
    EXPECT_EQ(back["question"], states[2]["question"]);
    EXPECT_EQ(back["history"], states[2]["history"]);
    const auto forward = Ask({{"do", "step"},
                              {"journal", back["journal"].get<std::string>() + back["cut"][0].get<std::string>() +
                                              back["cut"][1].get<std::string>()},
                              {"backs", 1}});
    EXPECT_EQ(forward["question"], state["question"]);
    const auto end = LiveToTheEnd(forward);
    EXPECT_EQ(end["end"], "mustered out");
    EXPECT_EQ(back["cut"].size(), 2U) << "a text for each question";
    EXPECT_EQ(Ask({{"do", "step"}, {"journal", end["journal"]}})["backs"], 1) << "opening changes nothing";
    const auto scrapped = Answer(state, "scrap");
    EXPECT_EQ(Ask({{"do", "step"}, {"journal", scrapped["journal"]}, {"back", scrapped["answered"]}})["question"],
              state["question"]);
    const auto moments = Ask({{"do", "moments"}, {"journal", state["journal"]}})["moments"];
    EXPECT_EQ(moments.size(), 4U);
    EXPECT_TRUE(std::is_sorted(moments.begin(), moments.end()));
}

TEST_F(DeskTest, AnswersThatCannotBeAreRefusedAndCostNothing) {
    const auto state = Begin();
    ASSERT_EQ(state["question"]["kind"], "select");
    for (const auto& wrong : {Json(1), Json("yes"), Json{{"choice", 1}}, Json::array({1}), Json::array({2, 1, 3, 4}),
                              Json::array({0, 1, 2, 3}), Json::array({1, 2, 3, 99}), Json(true)})
        EXPECT_NE(Answer(state, wrong).value("error", "").find("is none to this question"), std::string::npos) << wrong;
    EXPECT_EQ(Answer(state, Json::array({1, 2, 3, 4}))["answered"], 1);
    EXPECT_EQ(Answer(state, "scrap")["end"], "scrapped");
    EXPECT_TRUE(Ask({{"do", "step"}, {"journal", state["journal"]}, {"back", 7}}).contains("error"));
    EXPECT_TRUE(Ask({{"do", "nothing"}}).contains("error"));
    EXPECT_TRUE(Json::parse(desk.Answer("{")).contains("error"));
    EXPECT_TRUE(Ask({{"do", "step"}, {"race", "Nobody"}, {"seed", "1"}}).contains("error"));
    auto broken = state["journal"].get<std::string>();
    broken.replace(broken.find("\"sha256\":\"") + 10, 4, "0000");
    const auto other = Ask({{"do", "step"}, {"journal", broken}});
    EXPECT_TRUE(other.contains("question")) << "other rules that ask the same";
    EXPECT_EQ(other["changed"].size(), 1U);
    auto diverging = Answer(state, Json::array({1, 2, 3, 4}))["journal"].get<std::string>();
    diverging.replace(diverging.find("background skills"), 10, "unheard-of");
    EXPECT_TRUE(Ask({{"do", "step"}, {"journal", diverging}}).contains("diverges"));
    EXPECT_EQ(Ask({{"do", "step"}, {"journal", diverging}, {"goOn", true}})["question"], state["question"]);
}

TEST_F(DeskTest, AFinishedLifeIsExportedInEachWay) {
    const auto end = LiveToTheEnd(Begin());
    const auto name = Ask({{"do", "name"}, {"journal", end["journal"]}})["name"].get<std::string>();
    EXPECT_FALSE(name.empty());
    test::TempFolder folder;
    const auto journal = folder.Write("life.jsonl", end["journal"].get<std::string>()).string();
    const auto replayed = [&](const std::string& format) {
        return cli::RunCli({"replay", "--data", KORVANE_SHIPPED_RULES, "--format", format, "--name", name, journal})
            .out;
    };
    const auto exported = [&](const std::string& format) {
        return Ask({{"do", "export"}, {"journal", end["journal"]}, {"format", format}, {"name", name}});
    };
    for (const auto* const format : {"json", "md", "csv", "foundry-journal", "foundry-actor"})
        EXPECT_EQ(exported(format)["text"], replayed(format));
    cli::RunCli({"replay", "--data", KORVANE_SHIPPED_RULES, "--format", "html", "--name", "Jo", "--out",
                 folder.path().string(), journal});
    const auto page = Ask({{"do", "export"}, {"journal", end["journal"]}, {"format", "template.htm"}, {"name", "Jo"}});
    EXPECT_EQ(page["bytes"], folder.Read("Jo.htm"));
    EXPECT_TRUE(exported("../rules/Names.dat").contains("error"));
    EXPECT_TRUE(
        Ask({{"do", "export"}, {"journal", end["journal"]}, {"format", "no.htm"}, {"name", ""}}).contains("error"));
    EXPECT_TRUE(
        Ask({{"do", "export"}, {"journal", Begin()["journal"]}, {"format", "json"}, {"name", ""}}).contains("error"));
    const auto terms = Ask({{"do", "from term"}, {"journal", end["journal"]}})["terms"];
    ASSERT_GE(terms.size(), 3U);
    const auto other = Ask({{"do", "from term"}, {"journal", end["journal"]}, {"term", terms[1][0]}});
    EXPECT_TRUE(Ask({{"do", "step"}, {"journal", other["journal"]}}).contains("question"));
}

TEST_F(DeskTest, SearchesGoOnFromRequestToRequest) {
    auto state = Begin();
    while (state["question"]["kind"] != "end of term")
        state = Answer(state, FirstAnswer(state["question"]));
    const auto without = Answer(state, FirstAnswer(state["question"]))["journal"];
    const auto first = Ask({{"do", "odds"}, {"journal", state["journal"]}, {"lives", 30}});
    const auto then = Ask({{"do", "odds"}, {"lives", 60}});
    EXPECT_EQ(first["lives"], 30);
    EXPECT_EQ(then["lives"], 60);
    EXPECT_FALSE(then["rows"].empty());
    EXPECT_EQ(Answer(state, FirstAnswer(state["question"]))["journal"], without) << "the life's own dice fall as ever";
    EXPECT_EQ(state["question"]["title"], "End of Term Options");
    EXPECT_EQ(state["question"]["buttons"][1], "Transfer & Re-Enlist");
    const auto careers = Ask({{"do", "careers"}, {"race", "Aslan"}, {"seed", "1"}, {"lives", 20}});
    EXPECT_GT(careers["places"].size(), 10U) << careers.dump().substr(0, 200);
    EXPECT_TRUE(Ask({{"do", "odds"}, {"lives", 90}}).contains("error")) << "one search at a time";
    const auto found = Ask({{"do", "find"}, {"want", "rank >= 2"}, {"seed", "1"}, {"first", 1}, {"lives", 500}});
    EXPECT_EQ(Ask({{"do", "verify"}, {"journal", found["journal"]}})["verdict"], "proved");
    EXPECT_EQ(found["next"].get<int>(), found["found"].get<int>() + 1);
    EXPECT_NE(Ask({{"do", "find"}, {"want", "Pilto > 1"}, {"seed", "1"}})["error"].get<std::string>().find("Pilot"),
              std::string::npos);
}

TEST_F(DeskTest, OtherRulesAreCheckedAndTaken) {
    test::TempFolder folder;
    EXPECT_TRUE(Ask({{"do", "use"}, {"folder", folder.path().string()}}).contains("error"));
    folder.Write("Nobody.eri", "x");
    const auto findings = Ask({{"do", "check"}, {"folder", folder.path().string()}})["findings"];
    ASSERT_FALSE(findings.empty());
    EXPECT_EQ(findings[0]["file"], "Nobody.eri");
    EXPECT_TRUE(Ask({{"do", "rules"}})["races"].size() > 1) << "those of before";
    EXPECT_EQ(Ask({{"do", "use"}, {"folder", KORVANE_RULES}})["races"].size(), 1U);
}

}  // namespace
}  // namespace korvane::web
