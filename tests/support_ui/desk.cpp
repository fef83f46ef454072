#include "support_ui/desk.h"

namespace korvane::test {

Desk::Desk(const HeldPath& data) : session(DataFolder(data), {}), window(session, guard, dice) {
    session.programTitle = "Korvane on trial";
    window.Load();
    window.show();
    window.Unlock();
}

std::vector<std::string> Desk::Shown(const QString& list) const {
    std::vector<std::string> lines;
    for (const auto& line : Get<ui::CopyList>(list).Lines())
        lines.push_back(line.toStdString());
    return lines;
}

bool Desk::Shows(const QString& list, const std::string& line) const {
    return Get<ui::CopyList>(list).Lines().contains(QString::fromStdString(line));
}

}  // namespace korvane::test
