// What the windows cost: korvane_speed blank|word|window|life|odds. scripts/speed.sh runs it and compares.
//   blank, word, window
//                   prints the clock (monotonic, in microseconds) at the first paint of a blank window, of a
//                   window with one word in it (fonts are loaded for the first word), or of the main window after the
//                   program's whole start; then the peak memory in KiB
//   life            prints the longest time, in microseconds, for which the event loop was kept busy while a life of
//                   ten terms was lived in the window, and the number of times it was
//   odds            for each question of a life with its odds unfolded: the number of answers, the time to the first
//                   figures in milliseconds, and by how many milliseconds a timer came too late at most meanwhile

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDate>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <algorithm>
#include <chrono>
#include <fstream>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>

#include "desktop/desktop_windows.h"
#include "desktop/kvn_gen.h"
#include "engine/selection.h"
#include "settings/start_up.h"
#include "ui/kvn_end_term.h"
#include "ui/looks.h"

namespace {

using namespace korvane;

long long Now() {
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

long PeakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:"))
            return std::stol(line.substr(6));
    return 0;
}

// Notes the time of the first paint of anything.
class FirstPaint : public QObject {
  public:
    FirstPaint() { qApp->installEventFilter(this); }

  protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::Paint || seen_)
            return false;
        seen_ = true;
        // When this event and those of the other widgets in the same update are done.
        QTimer::singleShot(0, [] { std::cout << Now() << '\n'; });
        QTimer::singleShot(300, [] {
            std::cout << PeakMemory() << std::endl;
            QApplication::exit(0);
        });
        return false;
    }

  private:
    bool seen_ = false;
};

int ShowBlank(const QString& word) {
    const FirstPaint paint;
    QMainWindow window;
    if (!word.isEmpty())
        window.setCentralWidget(new QLabel(word));
    window.resize(1140, 720);
    window.show();
    return QApplication::exec();
}

struct Desktop {
    ClockDice dice;
    Session session{DataFolder(HeldPath("")), {}};
    ui::InputGuard guard;
    KVNGen window{session, guard, dice};
    DesktopWindows windows{session, window, guard};

    Desktop() {
        if (!StartUp(session, windows, "", QDate::currentDate().month()))
            throw std::runtime_error("the program isn't set up; point Korvane.ini at the rules");
    }
};

int ShowWindow() {
    const FirstPaint paint;
    Desktop desktop;
    return QApplication::exec();
}

// The stretches between two times at which the event loop waits.
class BusyTime {
  public:
    BusyTime() {
        auto* const dispatcher = QAbstractEventDispatcher::instance();
        QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, dispatcher, [this] { since_ = Now(); });
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, dispatcher, [this] {
            longest_ = std::max(longest_, Now() - since_);
            ++stretches_;
        });
    }
    void Reset() { longest_ = stretches_ = 0; }
    long long longest() const { return longest_; }
    long long stretches() const { return stretches_; }

  private:
    long long since_ = Now();
    long long longest_ = 0;
    long long stretches_ = 0;
};

// Re-enlists until the term limit, and takes what mustering out gives. Who was in prison at the limit may serve for
// ever.
void Answer(QWidget& dialog, int terms) {
    constexpr int kTermLimit = 10;
    const auto press = [&dialog](const char* name) {
        auto* const button = dialog.findChild<QPushButton*>(name);
        if (button != nullptr && button->isEnabled())
            button->click();
        return button != nullptr && button->isEnabled();
    };
    if (dialog.objectName() == "KVNEndTerm")
        press(terms < kTermLimit ? "reEnlist" : "musterOut");
    else if (dialog.objectName() == "KVNMuster")
        press("material") || press("done");
    else if (dialog.objectName() == "KVNTransfer")
        press("endCareer");
    else if (dialog.objectName() == "SLIST1")
        press("cancel");
    else if (dialog.objectName() == "KVNTables")
        press("table2");
    else if (auto* const box = dialog.findChild<QPushButton*>(); box != nullptr)
        box->click();
}

// Answers a question when its odds are as sure as they get.
class OddsReader {
  public:
    explicit OddsReader(Desktop& desktop) : desktop_(desktop) {
        QObject::connect(&tick_, &QTimer::timeout, [this] { Look(); });
        tick_.setTimerType(Qt::PreciseTimer);
        tick_.start(kTick);
    }

  private:
    static constexpr int kTick = 5;

    void Look() {
        const auto now = Now();
        late_ = std::max(late_, now - last_ - kTick * 1000LL);
        last_ = now;
        auto* const dialog = QApplication::activeModalWidget();
        auto* const odds = dialog == nullptr ? nullptr : dialog->findChild<QToolButton*>("oddsButton");
        if (odds == nullptr || !odds->isEnabled()) {
            if (dialog != nullptr)
                Answer(*dialog, desktop_.session.character.TermsTotal);
            return;
        }
        const auto* const note = dialog->findChild<QLabel*>("oddsNote");
        if (!odds->isChecked()) {
            begun_ = Now();
            odds->click();
        } else if (dialog != dialog_ || begun_ == 0) {
            begun_ = begun_ == 0 ? now : begun_;
            first_ = late_ = 0;
            dialog_ = dialog;
        } else if (note->text().contains(" lives") && first_ == 0) {
            first_ = now - begun_;
        } else if (note->text().contains("2,000") || note->text().contains("no other answer")) {
            const auto* const table = dialog->findChild<QTreeWidget*>("oddsTable");
            std::cout << table->topLevelItemCount() << ' ' << first_ / 1000 << ' ' << late_ / 1000 << '\n';
            begun_ = 0;
            dialog_ = nullptr;
            Answer(*dialog, desktop_.session.character.TermsTotal);
        }
    }

    Desktop& desktop_;
    QTimer tick_;
    long long last_ = Now();
    long long late_ = 0;
    long long begun_ = 0;
    long long first_ = 0;
    const QWidget* dialog_ = nullptr;
};

int ReadOdds() {
    Desktop desktop;
    QApplication::setDoubleClickInterval(0);
    desktop.window.characterFinished = [] { return false; };
    QTimer::singleShot(500, [&] {
        const OddsReader reader(desktop);
        desktop.window.findChild<QPushButton*>("startCareer")->click();
        QApplication::exit(0);
    });
    return QApplication::exec();
}

int LiveTenTerms() {
    Desktop desktop;
    auto& options = desktop.session.options;
    options.Set(Option::AutomaticGeneration);
    options.Set(Option::ForceNoEjectionOnMishap);
    QTimer robot;
    QObject::connect(&robot, &QTimer::timeout, [&desktop] {
        if (auto* const dialog = QApplication::activeModalWidget(); dialog != nullptr)
            Answer(*dialog, desktop.session.character.TermsTotal);
    });
    int terms = 0;
    desktop.window.characterFinished = [&] {
        terms = desktop.session.character.TermsTotal;
        return false;
    };
    BusyTime busy;
    QTimer::singleShot(500, [&] {
        robot.start(30);
        busy.Reset();
        desktop.window.findChild<QPushButton*>("startCareer")->click();
        robot.stop();
        QTimer::singleShot(200, [&] {
            std::cout << busy.longest() << '\n' << busy.stretches() << '\n' << terms << std::endl;
            QApplication::exit(0);
        });
    });
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    ui::MendPalette();
    const std::string_view mode = argc == 2 ? argv[1] : "";
    try {
        if (mode == "blank")
            return ShowBlank({});
        if (mode == "word")
            return ShowBlank("Korvane");
        if (mode == "window")
            return ShowWindow();
        if (mode == "life")
            return LiveTenTerms();
        if (mode == "odds")
            return ReadOdds();
        std::cerr << "usage: korvane_speed blank|word|window|life|odds\n";
    } catch (const std::exception& error) {
        std::cerr << "korvane_speed: " << error.what() << '\n';
    }
    return 1;
}
