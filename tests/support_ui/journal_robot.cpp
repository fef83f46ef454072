#include "support_ui/journal_robot.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <array>
#include <gtest/gtest.h>
#include <map>

#include "character/options.h"
#include "ui/qt_text.h"

namespace korvane::test {

using ui::ToQt;

namespace {

bool IsDice(const std::string& line) {
    return line.starts_with("{\"roll\"") || line.starts_with("{\"draw\"");
}

QString Text(const nlohmann::ordered_json& value) {
    return QString::fromStdString(value.get<std::string>());
}

// What a button shows.
std::string Caption(const QAbstractButton& button) {
    return button.text().replace("&&", "&").toStdString();
}

void Tick(const QWidget& dialog, const QString& name, bool ticked) {
    auto& box = Child<QCheckBox>(dialog, name);
    if (box.isChecked() != ticked)
        RealClick(box);
}

const std::map<std::string, std::string> kDialogs = {
    {"choose", "SPICKBOX"}, {"select", "SLIST1"},          {"ask", "QMessageBox"},      {"tell", "QMessageBox"},
    {"table", "KVNTables"}, {"end of term", "KVNEndTerm"}, {"transfer", "KVNTransfer"}, {"muster", "KVNMuster"},
};

}  // namespace

std::string DiceOf(const std::vector<std::string>& journal) {
    auto dice = journal.front() + "\n";
    for (int i = 0; i < 2; ++i)
        for (const auto& line : journal)
            if (IsDice(line))
                dice += line + "\n";
    return dice;
}

JournalRobot::JournalRobot(const std::vector<std::string>& journal) {
    for (std::size_t i = 1; i < journal.size(); ++i)
        if (!IsDice(journal[i]) && !journal[i].starts_with("{\"file\""))
            questions_.push_back(Line::parse(journal[i]));
}

bool JournalRobot::AllAnswered() const {
    return next_ == questions_.size() || questions_[next_].contains("end");
}

void JournalRobot::Respond(QWidget& dialog) {
    if (scrapping_) {
        Reply(dialog, "Scrap this character?", "yes");
        return;
    }
    if (next_ == questions_.size()) {
        GiveUp(dialog, "the journal holds no more questions");
        return;
    }
    const auto& line = questions_[next_++];
    const auto kind = line.begin().key();
    kinds_.insert(kind);
    if (kind == "end" && line["end"] == "scrapped") {
        scrapping_ = true;
        PressKey(dialog, Qt::Key_Escape);
    } else if (kind == "end" || NameOf(dialog) != kDialogs.at(kind)) {
        GiveUp(dialog, "the journal holds " + line.dump());
    } else {
        SCOPED_TRACE(line.dump());
        Answer(dialog, kind, line);
    }
}

void JournalRobot::Answer(QWidget& dialog, const std::string& kind, const Line& line) {
    if (kind == "choose")
        Choose(dialog, line);
    else if (kind == "select")
        Select(dialog, line);
    else if (kind == "ask")
        Reply(dialog, line["ask"], Text(line["answer"]));
    else if (kind == "tell")
        Reply(dialog, line["tell"], "ok");
    else if (kind == "table")
        PickTable(dialog, line);
    else if (kind == "end of term")
        EndTerm(dialog, line);
    else if (kind == "transfer")
        Transfer(dialog, line);
    else
        Muster(dialog, line);
}

void JournalRobot::Press(QWidget& dialog, int number, const QString& button) const {
    if (number <= 9 && next_ % 2 == 0)
        PressKey(dialog, static_cast<Qt::Key>(Qt::Key_0 + number));
    else
        RealClick(dialog, button);
}

void JournalRobot::Choose(QWidget& dialog, const Line& line) const {
    EXPECT_EQ(dialog.windowTitle(), Text(line["choose"]));
    auto shown = Line::array();
    for (const auto* const button : dialog.findChildren<QPushButton*>())
        if (button->isVisible())
            shown.push_back(Caption(*button));
    EXPECT_EQ(shown, line["options"]);
    const int picked = line["picked"];
    Press(dialog, picked, QString("pick%1").arg(picked));
}

void JournalRobot::Select(QWidget& dialog, const Line& line) const {
    auto& list = Child<QListWidget>(dialog, "items");
    auto shown = Line::array();
    for (int row = 0; row < list.count(); ++row)
        shown.push_back(list.item(row)->text().toStdString());
    EXPECT_EQ(shown, line["items"]);
    EXPECT_EQ(Child<QLabel>(dialog, "prompt").text(), Text(line["select"]));
    EXPECT_EQ(Child<QLineEdit>(dialog, "maximum").text().toInt(), line["maximum"]);
    EXPECT_EQ(Child<QLineEdit>(dialog, "minimum").text().toInt(), line["minimum"]);
    for (const int mark : line["marked"]) {
        auto* const item = list.item(mark - 1);
        list.scrollToItem(item);
        RealClick(*list.viewport(), list.visualItemRect(item).center());
    }
    if (line["marked"].empty() && next_ % 2 == 0)
        PressKey(dialog, Qt::Key_Escape);
    else if (line["marked"].empty())
        RealClick(dialog, "cancel");
    else if (next_ % 2 == 0)
        PressKey(dialog, Qt::Key_Return);
    else
        RealClick(dialog, "ok");
}

void JournalRobot::Reply(QWidget& dialog, const Line& line, const QString& answer) const {
    const auto& box = dynamic_cast<QMessageBox&>(dialog);
    EXPECT_EQ(box.text(), Text(line));
    auto* const button = box.button(answer == "ok"    ? QMessageBox::Ok
                                    : answer == "yes" ? QMessageBox::Yes
                                                      : QMessageBox::No);
    ASSERT_NE(button, nullptr);
    RealClick(*button);
}

void JournalRobot::PickTable(QWidget& dialog, const Line& line) const {
    auto enabled = Line::array();
    for (int number = 1; number <= 6; ++number)
        if (Child<QPushButton>(dialog, QString("table%1").arg(number)).isEnabled())
            enabled.push_back(number);
    EXPECT_EQ(enabled, line["table"]);
    const int picked = line["picked"];
    Press(dialog, picked, QString("table%1").arg(picked));
}

void JournalRobot::EndTerm(QWidget& dialog, const Line& line) const {
    const auto& options = line["options"];
    for (const auto caption : kOptionCaptions)
        Tick(dialog, ToQt(caption), std::ranges::find(options, caption) != options.end());
    constexpr std::array kButtons = {"reEnlist", "transfer", "musterOut", "scrap"};
    const int answer = line["answer"];
    Press(dialog, answer, kButtons.at(static_cast<std::size_t>(answer - 1)));
}

void JournalRobot::Transfer(QWidget& dialog, const Line& line) const {
    if (line["transfer"] == false) {
        RealClick(dialog, "endCareer");
        return;
    }
    ChooseInCombo(Child<QComboBox>(dialog, "career"), Text(line["career"]));
    if (line["assignment"] != "")
        ChooseInCombo(Child<QComboBox>(dialog, "assignment"), Text(line["assignment"]));
    RealClick(dialog, "accept");
}

void JournalRobot::Muster(QWidget& dialog, const Line& line) const {
    const auto rolls = QString(" %1 rolls remaining").arg(line["muster"].get<int>());
    EXPECT_TRUE(Child<QLabel>(dialog, "rolls").text().endsWith(rolls));
    Tick(dialog, "gambler", line["gambler"]);
    const std::map<std::string, std::pair<int, const char*>> buttons = {
        {"Cash", {1, "cash"}},
        {"Material", {2, "material"}},
        {"3 Cash, rest Material", {3, "threeCash"}},
        {"Done", {4, "done"}},
    };
    const auto [number, button] = buttons.at(line["press"]);
    Press(dialog, number, button);
}

}  // namespace korvane::test
