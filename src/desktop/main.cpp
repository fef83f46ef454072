#include <QApplication>
#include <QDate>
#include <QIcon>
#include <QSettings>
#include <QTimer>
#include <exception>
#include <string>

#include "desktop/desktop_windows.h"
#include "desktop/exporter.h"
#include "desktop/kvn_gen.h"
#include "settings/start_up.h"
#include "ui/looks.h"
#include "ui/message_boxes.h"
#include "ui/qt_text.h"

namespace {

// The whole command line after the program's name.
std::string CommandLine(int argc, char** argv) {
    std::string line;
    for (int i = 1; i < argc; ++i)
        line.append(i > 1 ? " " : "").append(argv[i]);
    return line;
}

int Run(const std::string& commandLine) {
    korvane::ClockDice dice;
    korvane::Session session(korvane::DataFolder(korvane::HeldPath("")), {});
    korvane::ui::InputGuard guard;
    korvane::KVNGen window(session, guard);
    session.seams = {&dice, &window.player(), &window.display()};
    korvane::Exporter exporter(session, window, guard);
    window.characterFinished = [&exporter] { exporter.Show(); };
    korvane::DesktopWindows windows(session, window, guard);
    try {
        if (!korvane::StartUp(session, windows, commandLine, QDate::currentDate().month()))
            return 0;
    } catch (const std::exception& error) {
        korvane::ui::ShowError(guard, nullptr, korvane::ui::ToQt(session.programTitle), QString::fromUtf8(error.what()),
                               QObject::tr("Korvane ends now."));
        return 1;
    }
    // Drawing the icon can wait until the window is there.
    QTimer::singleShot(0, &window, [] { QApplication::setWindowIcon(QIcon(":/korvane.svg")); });
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    const auto command_line = CommandLine(argc, argv);
    // The toolkit would keep its file dialog's folders and sizes; the program keeps nothing of the kind.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
    QApplication application(argc, argv);
    QApplication::setApplicationName("Korvane");
    QApplication::setDesktopFileName("org.korvane.Korvane");
    korvane::ui::MendPalette();
    return Run(command_line);
}
