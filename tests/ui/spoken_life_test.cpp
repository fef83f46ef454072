// A whole life through the accessibility tree: found and pressed by role and name only, as a screen reader does. What
// is spoken is kept in data/spoken-life.txt; with KORVANE_APPROVE set it is written anew.

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QAccessibleEditableTextInterface>
#include <QApplication>
#include <QTest>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>

#include "base/files.h"
#include "desktop/exporter.h"
#include "support/environment.h"
#include "support/temp_folder.h"
#include "support_ui/desk.h"

namespace korvane {
namespace {

using Node = QAccessibleInterface;

QString RoleOf(const Node& node) {
    switch (node.role()) {
        case QAccessible::PushButton:
        case QAccessible::ButtonMenu:
        case QAccessible::ButtonDropDown:
            return "button";
        case QAccessible::CheckBox:
            return "tick box";
        case QAccessible::RadioButton:
            return "choice";
        case QAccessible::ComboBox:
            return "selector";
        case QAccessible::List:
            return "list";
        case QAccessible::ListItem:
            return "item";
        case QAccessible::Tree:
            return "table";
        case QAccessible::EditableText:
            return "field";
        case QAccessible::StaticText:
            return "text";
        case QAccessible::Dialog:
        case QAccessible::AlertMessage:
            return "dialog";
        case QAccessible::Window:
            return "window";
        default:
            return {};
    }
}

QString NameOf(const Node& node) {
    return node.text(QAccessible::Name);
}

// Visits what can be perceived, the node first.
void Visit(Node& node, const std::function<void(Node&)>& seen) {
    if (node.state().invisible)
        return;
    seen(node);
    for (int i = 0; i < node.childCount(); ++i)
        if (auto* const child = node.child(i);
            child != nullptr && child->role() != QAccessible::ListItem && child->role() != QAccessible::Cell)
            Visit(*child, seen);
}

QString Spoken(const Node& node) {
    const auto state = node.state();
    auto line = RoleOf(node) + " \"" + NameOf(node) + "\"";
    if (node.role() == QAccessible::ComboBox || node.role() == QAccessible::EditableText)
        line += ": " + node.text(QAccessible::Value);
    if (state.disabled)
        line += ", disabled";
    if (state.checked)
        line += ", on";
    return line;
}

constexpr int kPatience = 60000;  // milliseconds

// Hears each dialog and answers it: by what was agreed on for its name or a text of it, else by its first button.
class Listener : public test::Robot {
  public:
    // Of a dialog in which this stands, these buttons are pressed, one at each time and the last from then on.
    std::vector<std::pair<QString, QStringList>> agreed;
    QStringList heard;

    void Hear(QWidget& window) {
        Visit(*QAccessible::queryAccessibleInterface(&window), [this](Node& node) { HearOne(node); });
    }
    static void Press(QWidget& window, const QString& name) {
        Node* button = nullptr;
        Visit(*QAccessible::queryAccessibleInterface(&window), [&](Node& node) {
            if (button == nullptr && RoleOf(node) == "button" && NameOf(node) == name && !node.state().disabled)
                button = &node;
        });
        ASSERT_NE(button, nullptr) << name.toStdString();
        // The button shows that it is pressed before it acts.
        bool acted = false;
        const QObject context;
        QObject::connect(qobject_cast<QAbstractButton*>(button->object()), &QAbstractButton::clicked, &context,
                         [&acted] { acted = true; });
        button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_TRUE(QTest::qWaitFor([&acted] { return acted; }, kPatience) || acted) << name.toStdString();
    }

  protected:
    void Respond(QWidget& dialog) override {
        Hear(dialog);
        MarkItems(dialog);
        const auto button = ButtonFor(dialog);
        heard << "> " + button + "\n";
        Press(dialog, button);
    }

  private:
    void HearOne(Node& node) {
        const auto role = RoleOf(node);
        if (role.isEmpty() || (role == "text" && NameOf(node).isEmpty()))
            return;
        heard << (role == "dialog" || role == "window" ? "" : "  ") + Spoken(node);
        const auto told = node.text(QAccessible::Description);
        if (role == "dialog" && !told.isEmpty())
            heard << "  " + QString(told).replace('\n', " | ");
        if (role == "list")
            HearLines(node);
        if (role == "table")
            HearRows(*node.tableInterface());
    }
    // The first and the last.
    void HearLines(Node& list) {
        constexpr int kEnough = 4;
        const int count = list.childCount();
        for (int i = 0; i < count; ++i)
            if (i < kEnough || i >= count - kEnough)
                heard << "    " + NameOf(*list.child(i));
            else if (i == kEnough)
                heard << "    ...";
    }
    void HearRows(QAccessibleTableInterface& table) {
        for (int row = 0; row < table.rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < table.columnCount(); ++column)
                cells << table.cellAt(row, column)->text(QAccessible::Name);
            heard << "    " + cells.join(" | ");
        }
    }
    // Where items are to be marked: the first ones, as many as the dialog says.
    static void MarkItems(QWidget& dialog) {
        int least = 0;
        bool one = false;
        Node* list = nullptr;
        Visit(*QAccessible::queryAccessibleInterface(&dialog), [&](Node& node) {
            one = one || NameOf(node) == "Choose 1";
            if (NameOf(node) == "Minimum" && RoleOf(node) == "field")
                least = node.text(QAccessible::Value).toInt();
            if (RoleOf(node) == "list")
                list = &node;
        });
        if (list == nullptr || (!one && least == 0))
            return;
        EXPECT_TRUE(list->state().focused) << "the keys go to the list at once";
        for (int i = 0; i < (one ? 1 : least); ++i) {
            test::PressKey(dialog, Qt::Key_Down);
            if (!one)
                test::PressKey(dialog, Qt::Key_Space);
        }
    }
    QString ButtonFor(QWidget& dialog) {
        QString first;
        QStringList names;
        Visit(*QAccessible::queryAccessibleInterface(&dialog), [&](Node& node) {
            names << NameOf(node);
            if (first.isEmpty() && RoleOf(node) == "button" && NameOf(node) != "Back" && !node.state().disabled)
                first = NameOf(node);
        });
        for (auto& [text, buttons] : agreed)
            if (names.contains(text))
                return buttons.size() > 1 ? buttons.takeFirst() : buttons.front();
        return first;
    }
};

constexpr std::uint64_t kSeed = 7;

TEST(SpokenLife, IsLivedByRoleAndNameAlone) {
    const bool approves = std::getenv("KORVANE_APPROVE") != nullptr;
    const test::TempFolder profile;
    const test::Environment environment{{"USERPROFILE=" + profile.path().string()}};
    QAccessible::setActive(true);
    test::Desk desk{HeldPath(KORVANE_RULES)};
    desk.window.life().UseSeed(Seed(kSeed));
    Listener::Press(desk.window, "Roll");
    Exporter exporter(desk.session, desk.window, desk.window.player(), desk.guard);
    desk.window.characterFinished = [&] { return exporter.Show(desk.window.life().tape()); };
    Listener listener;
    listener.agreed = {{"Select Pre-Career Education", {"University"}},
                       {"End of Term Options", {"Re-Enlist", "Re-Enlist", "Transfer & Re-Enlist", "Muster Out"}},
                       {"Select Transfer Career and Assignment", {"End Career"}},
                       {"The page", {"Export", "Close"}}};
    listener.Hear(desk.window);
    listener.heard << "> Start Career\n";
    Listener::Press(desk.window, "Start Career");
    EXPECT_TRUE(QTest::qWaitFor([&] { return desk.window.life().ended().has_value(); }, kPatience));
    QApplication::processEvents();
    listener.Hear(desk.window);

    const auto spoken = listener.heard.join('\n').replace(QString::fromStdString(profile.path().string()), "PROFILE");
    const std::string kept = KORVANE_SPOKEN_LIFE;
    if (approves)
        ReplaceFile(kept, spoken.toStdString() + "\n");
    const auto golden = QString::fromStdString(ReadBytes(kept, "a text", 1U << 20U));
    const auto lines = golden.split('\n');
    const auto now = (spoken + "\n").split('\n');
    for (int i = 0; i < std::max(lines.size(), now.size()); ++i)
        ASSERT_EQ(now.value(i), lines.value(i)) << "line " << i + 1 << " of " << kept;
}

}  // namespace
}  // namespace korvane
