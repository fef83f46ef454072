#include <QApplication>
#include <QDate>
#include <QIcon>
#include <QSettings>
#include <QTimer>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "base/encoding.h"
#include "base/error.h"
#include "desktop/desktop_windows.h"
#include "desktop/exporter.h"
#include "desktop/kvn_gen.h"
#include "settings/start_up.h"
#include "ui/looks.h"
#include "ui/message_boxes.h"
#include "ui/qt_text.h"

namespace {

// What the command line asks for.
struct Wishes {
    std::optional<korvane::Seed> seed;
    std::string journal;
    std::string others;  // all else after the program's name
};

// Throws UsageError for a seed that is none.
Wishes WishesOf(const std::vector<std::string>& arguments) {
    Wishes wishes;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const bool has_value = i + 1 < arguments.size();
        if (arguments[i] == "--seed" && has_value)
            wishes.seed.emplace(korvane::DecodeWord(arguments[++i]));
        else if (arguments[i].starts_with("--seed="))
            wishes.seed.emplace(korvane::DecodeWord(arguments[i].substr(7)));
        else if (arguments[i] == "--journal" && has_value)
            wishes.journal = arguments[++i];
        else if (arguments[i].starts_with("--journal="))
            wishes.journal = arguments[i].substr(10);
        else if (arguments[i] == "--seed" || arguments[i] == "--journal")
            throw korvane::UsageError(arguments[i] + " needs a value");
        else
            wishes.others.append(wishes.others.empty() ? "" : " ").append(arguments[i]);
    }
    return wishes;
}

int Run(const Wishes& wishes) {
    korvane::ClockDice dice;
    korvane::Session session(korvane::DataFolder(korvane::HeldPath("")), {});
    korvane::ui::InputGuard guard;
    korvane::KVNGen window(session, guard, dice);
    if (wishes.seed)
        window.life().UseSeed(*wishes.seed);
    korvane::Exporter exporter(session, window, window.player(), guard);
    window.characterFinished = [&] { return exporter.Show(window.life().tape()); };
    window.exportAgain = [&] { exporter.Show(*window.life().ended(), false); };
    korvane::DesktopWindows windows(session, window, guard);
    try {
        if (!korvane::StartUp(session, windows, wishes.others, QDate::currentDate().month()))
            return 0;
    } catch (const std::exception& error) {
        korvane::ui::ShowError(guard, nullptr, korvane::ui::ToQt(session.programTitle), QString::fromUtf8(error.what()),
                               QObject::tr("Korvane ends now."));
        return 1;
    }
    if (!wishes.journal.empty())
        QTimer::singleShot(0, &window, [&] { window.KeepJournalIn(wishes.journal); });
    // Drawing the icon can wait until the window is there.
    QTimer::singleShot(0, &window, [] { QApplication::setWindowIcon(QIcon(":/korvane.svg")); });
    return QApplication::exec();
}

}  // namespace

constexpr auto kUsage =
    "usage: korvane [--seed SEED] [--journal FILE]\n"
    "Generates player characters, term by term.\n"
    "  --seed SEED     a number or a word that the dice come from, so that lives can be proved\n"
    "  --journal FILE  keeps each life in a file as it is lived; goes on with an unfinished one\n"
    "  --help, --version\n";

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (!arguments.empty() && (arguments.front() == "--help" || arguments.front() == "--version")) {
        std::cout << (arguments.front() == "--help" ? kUsage : "korvane " KORVANE_VERSION "\n");
        return 0;
    }
    // The toolkit would keep its file dialog's folders and sizes; the program keeps nothing of the kind.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
    QApplication application(argc, argv);
    QApplication::setApplicationName("Korvane");
    QApplication::setDesktopFileName("org.korvane.Korvane");
    korvane::ui::MendPalette();
    try {
        return Run(WishesOf(arguments));
    } catch (const korvane::UsageError& error) {
        std::cerr << "korvane: " << error.what() << '\n';
        return 1;
    }
}
