// Takes a picture of each window: korvane_screens light|dark FOLDER RULES. scripts/pictures.sh runs it.

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <algorithm>
#include <array>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "character/player_texts.h"
#include "desktop/desktop_windows.h"
#include "desktop/exporter.h"
#include "desktop/kvn_gen.h"
#include "engine/mustering_out.h"
#include "engine/selection.h"
#include "play/players.h"
#include "play/sensible_player.h"
#include "settings/start_up.h"
#include "skills/skill_tables.h"
#include "ui/kvn_about.h"
#include "ui/looks.h"
#include "ui/message_boxes.h"

namespace {

using namespace korvane;

constexpr std::uint64_t kSeed = 23;

QPalette DarkPalette() {
    QPalette palette(QColor(66, 66, 66), QColor(50, 50, 50));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::AlternateBase, QColor(46, 46, 46));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, QColor(235, 235, 235));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(140, 140, 140));
    palette.setColor(QPalette::Highlight, QColor(64, 116, 168));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(170, 170, 170));
    return palette;
}

class Camera {
  public:
    explicit Camera(QString folder) : folder_(std::move(folder)) {}

    void Take(QWidget& window, const QString& name) const {
        QApplication::processEvents();
        const auto file = QDir(folder_).filePath(name + ".png");
        if (!Whole(window).save(file))
            qFatal("can't write %s", qPrintable(file));
    }
    // Takes the dialog that `ask` shows, and closes it.
    template <typename Ask>
    void TakeDialog(const QString& name, const Ask& ask) const {
        QTimer::singleShot(50, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                qFatal("no dialog for %s", qPrintable(name));
            Take(*dialog, name);
            dialog->done(ui::NeededDialog::kScrapped);
        });
        try {
            ask();
        } catch (const CharacterScrapped&) {
            return;  // how a dialog that needs an answer takes its end
        }
    }

    // Takes the dialog that `ask` shows with its odds, when all lives have been lived.
    template <typename Ask>
    void TakeOdds(const QString& name, const Ask& ask) const {
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            auto* const note = dialog->findChild<QLabel*>("oddsNote");
            if (note == nullptr || note->isHidden())
                dialog->findChild<QToolButton*>("oddsButton")->click();
            else if (note->text().contains("2,000")) {
                timer.stop();
                Take(*dialog, name);
                // Unfolded it would be in the pictures that follow, with whatever was found by then.
                dialog->findChild<QToolButton*>("oddsButton")->click();
                dialog->done(ui::NeededDialog::kScrapped);
            }
        });
        timer.start(50);
        try {
            ask();
        } catch (const CharacterScrapped&) {
            return;
        }
    }

    // Takes the list that drops from the dialog's first combo box.
    template <typename Ask>
    void TakeList(const QString& name, const Ask& ask) const {
        QTimer::singleShot(50, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            auto* const combo = dialog->findChild<QComboBox*>();
            combo->showPopup();
            Take(*combo->view()->window(), name);
            combo->hidePopup();
            dialog->done(ui::NeededDialog::kScrapped);
        });
        try {
            ask();
        } catch (const CharacterScrapped&) {
            return;
        }
    }

  private:
    // With the window of the last lines, where it stands above a choice.
    static QPixmap Whole(QWidget& window) {
        auto picture = window.grab();
        const auto windows = QApplication::topLevelWidgets();
        const auto found = std::ranges::find(windows, "recentWindow", &QWidget::objectName);
        auto* const above = found == windows.end() ? nullptr : *found;
        if (above == nullptr || !above->isVisible())
            return picture;
        const auto room = window.geometry().united(above->geometry());
        QPixmap whole(room.size() * picture.devicePixelRatio());
        whole.setDevicePixelRatio(picture.devicePixelRatio());
        whole.fill(Qt::gray);
        QPainter painter(&whole);
        painter.drawPixmap(above->pos() - room.topLeft(), above->grab());
        painter.drawPixmap(window.geometry().topLeft() - room.topLeft(), picture);
        return whole;
    }

    QString folder_;
};

// Has pictures taken of the first questions of their kinds, and answers them itself.
class Sitter : public play::SensiblePlayer {
  public:
    Sitter(const Session& session, Player& windows, const Camera& camera)
        : SensiblePlayer(session, RandomStream(kSeed), 4), windows_(windows), camera_(camera) {}

    int Choose(const ChoiceQuestion& question) override {
        if (question.title == "Select Pre-Career Education")
            camera_.TakeOdds("odds-choice", [&] { windows_.Choose(question); });
        return SensiblePlayer::Choose(question);
    }
    bool Ask(const YesNoQuestion& question) override {
        if (std::exchange(asked_, true) == false)
            camera_.TakeOdds("odds-question", [&] { windows_.Ask(question); });
        return SensiblePlayer::Ask(question);
    }
    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override {
        if (question.termsTotal == 2)
            camera_.TakeOdds("odds-end-of-term", [&] { windows_.EndOfTerm(question); });
        return SensiblePlayer::EndOfTerm(question);
    }

  private:
    Player& windows_;
    const Camera& camera_;
    bool asked_ = false;
};

void TakeCareers(KVNGen& window, const Camera& camera) {
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->findChild<QLabel*>("careersNote")->text().startsWith("2,000"))
            return;
        timer.stop();
        auto* const careers = dialog->findChild<QTreeWidget*>("careers");
        careers->topLevelItem(1)->setExpanded(true);
        QApplication::processEvents();
        camera.Take(*dialog, "careers");
        dialog->reject();
    });
    timer.start(50);
    for (auto* const action : window.findChildren<QAction*>())
        if (action->shortcut() == QKeySequence(Qt::CTRL | Qt::Key_K))
            action->trigger();
}

void TakeOddsOfALife(KVNGen& window, Session& session, const Camera& camera) {
    Sitter sitter(session, window.player(), camera);
    window.life().UsePlayer(sitter);
    window.characterFinished = {};
    LoadCareer(session, "Imperial Human", "Scout");
    window.Refresh();
    window.findChild<QPushButton*>("startCareer")->click();
    window.life().UsePlayer(window.player());
}

// A life that was lived automatically, shown in the window. Returns the finished character.
CharacterRecord LiveInWindow(Session& session, KVNGen& window) {
    play::PolicyPlayer policy(session, RandomStream(kSeed), 6);
    window.life().UsePlayer(policy);
    session.options.Set(Option::AutomaticGeneration);
    session.options.Set(Option::SortSkillsByValue);
    LoadCareer(session, "Imperial Human", "Scout");
    window.Refresh();
    CharacterRecord finished;
    window.characterFinished = [&] {
        finished = session.character;
        return false;
    };
    window.findChild<QPushButton*>("startCareer")->click();
    window.life().UsePlayer(window.player());
    return finished;
}

void TakeChoices(Player& player, const Camera& camera) {
    const std::array<std::string_view, 3> careers = {"Enlist Immediately", "University", "Military Academy"};
    camera.TakeDialog("choice", [&] { player.Choose({"Select Pre-Career Education", careers}); });
    std::vector<std::string> many;
    for (int i = 1; i <= 24; ++i)
        many.push_back(Concat("Skill ", i, "-1"));
    const std::vector<std::string_view> all(many.begin(), many.end());
    camera.TakeDialog("choice-of-24", [&] { player.Choose({"Select any Skill at level 1", all}); });
    const std::array<std::string_view, 8> skills = {"Admin-0",       "Athletics-0", "Carouse-0", "Drive-0",
                                                    "Electronics-0", "Medic-0",     "Recon-0",   "Vacc Suit-0"};
    camera.TakeDialog("list", [&] { player.Select({"Select 3 background skills", 3, 3, skills}); });
    camera.TakeDialog("list-of-one", [&] { player.Select({"Select Level 0 Skill", 1, 1, skills}); });
    camera.TakeDialog("question", [&] { player.Ask({"Ordered on Black Ops against conscience. Accept?"}); });
    camera.TakeDialog("notice", [&] {
        player.Tell({"You have been ejected from this career following a Mishap", Icon::Exclamation});
    });
}

void TakeCareerDialogs(Session& session, Player& player, const Camera& camera) {
    session.options = {};
    camera.TakeDialog("tables", [&] { ChooseSkillTable(session); });
    camera.TakeDialog("end-of-term", [&] { player.EndOfTerm({4, session.options}); });
    auto& data = session.data;
    const auto transfer = [&] {
        player.Transfer(
            {*session.selection.careers,
             [&](std::string_view career) { return data.TransferAssignmentNames(session.selection.race, career); },
             [&](std::string_view career) {
                 return std::string(data.Career(session.selection.race, career).record.description);
             }});
    };
    camera.TakeDialog("transfer", transfer);
    camera.TakeList("transfer-careers", transfer);
    QTimer::singleShot(100, [&] {
        const auto press = [](const char* name) {
            QApplication::activeModalWidget()->findChild<QPushButton*>(name)->click();
            QApplication::processEvents();
        };
        QTimer::singleShot(100, [&, press] {
            QTimer::singleShot(100, [&, press] {
                camera.Take(*QApplication::activeModalWidget(), "mustering-out");
                press("done");
            });
            press("material");
        });
        press("cash");
    });
    session.character.TermsInCareer = 5;
    session.options.Set(Option::AutomaticGeneration);  // no question comes between
    MusterOut(session);
    session.options = {};
}

// What the pictures depend on beside the program.
void PinDown() {
    QApplication::setStyle("Fusion");
    QApplication::setFont(QFont("DejaVu Sans", 10));
    QApplication::setCursorFlashTime(0);
}

void TellEnvironment() {
    const auto font = QFontInfo(QApplication::font());
    std::cout << "Qt " << qVersion() << "\nstyle " << QApplication::style()->name().toStdString() << "\nfont "
              << font.family().toStdString() << ' ' << font.pointSize() << "\ndots per inch "
              << QApplication::primaryScreen()->logicalDotsPerInch() << '\n';
}

int Run(const QString& folder, const QString& rules) {
    SeededDice dice(kSeed, 1);
    Session session(DataFolder(HeldPath(rules.toStdString())), {});
    ui::InputGuard guard;
    KVNGen window(session, guard, dice);
    session.programTitle = ProgramTitle(ProgramVersion(KORVANE_VERSION_MAJOR, KORVANE_VERSION_MINOR, 0));
    const Camera camera(QDir(folder).absolutePath());
    window.Load();
    window.resize(1200, 750);
    window.show();
    camera.Take(window, "main-new");
    TakeCareers(window, camera);
    TakeOddsOfALife(window, session, camera);
    const auto finished = LiveInWindow(session, window);
    camera.Take(window, "main");
    window.resize(1024, 670);
    camera.Take(window, "main-1024");
    session.character = finished;
    TakeChoices(window.player(), camera);
    TakeCareerDialogs(session, window.player(), camera);
    DesktopWindows windows(session, window, guard);
    QDir::setCurrent(rules);
    camera.TakeDialog("first-run", [&] { windows.ChooseRaceFile("Imperial Human.eri"); });
    Exporter exporter(session, window, window.player(), guard);
    camera.TakeDialog("export", [&] { exporter.Show(window.life().tape()); });
    QTimer::singleShot(50, [&] {
        auto* const dialog = QApplication::activeModalWidget();
        QTimer::singleShot(50, [&, dialog] {
            camera.Take(*QApplication::activeModalWidget(), "exported");
            dynamic_cast<QDialog&>(*QApplication::activeModalWidget()).accept();
            dynamic_cast<QDialog&>(*dialog).reject();
        });
        dialog->findChild<QLineEdit*>("name")->setText("Zoe");
        dialog->findChild<QCheckBox*>("pdf")->setChecked(true);
        dialog->findChild<QPushButton*>("export")->click();
    });
    exporter.Show(window.life().tape());
    camera.TakeDialog("scrap", [&] {
        ui::AskYesNo(guard, &window, window.windowTitle(), {kScrapQuestion, {}, Icon::Question, false});
    });
    window.display().ControlsLocked(true);
    window.Refresh();
    camera.Take(window, "main-locked");
    camera.TakeDialog("about", [&] {
        ui::KVNAbout about(window.windowTitle(), &window);
        guard.Run(about);
    });
    camera.TakeDialog("error", [&] {
        ui::ShowError(guard, &window, window.windowTitle(),
                      "rules/Imperial Human-Navy.ecf:14: expected a number, found \"x\"", "Korvane ends now.");
    });
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    PinDown();
    if (argc == 2 && std::string_view(argv[1]) == "environment") {
        TellEnvironment();
        return 0;
    }
    if (argc != 4) {
        std::cerr << "usage: korvane_screens environment | light|dark FOLDER RULES\n";
        return 1;
    }
    if (std::string_view(argv[1]) == "dark")
        QApplication::setPalette(DarkPalette());
    ui::MendPalette();
    try {
        return Run(argv[2], argv[3]);
    } catch (const std::exception& error) {
        std::cerr << "korvane_screens: " << error.what() << '\n';
        return 1;
    }
}
