// The main window on the shipped rules, shown and ready, as after the program's start.
#pragma once

#include <string>
#include <vector>

#include "desktop/kvn_gen.h"
#include "support_ui/robot.h"

namespace korvane::test {

class Desk {
  public:
    explicit Desk(const HeldPath& data);

    // The widget of that name in the window itself, not in one of its dialogs.
    template <typename Widget>
    Widget& Get(const QString& name) const {
        return Child<Widget>(*window.centralWidget(), name);
    }
    void Click(const QString& name) const { RealClick(*window.centralWidget(), name); }
    // The lines that a list shows.
    std::vector<std::string> Shown(const QString& list) const;
    bool Shows(const QString& list, const std::string& line) const;

    SeededDice dice{1, 1};
    Session session;
    ui::InputGuard guard;
    KVNGen window;
};

}  // namespace korvane::test
