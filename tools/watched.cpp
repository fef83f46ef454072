// The desktop program, watched: it is the real one, but says on the error stream what must never happen while
// tools/monkey.py types and clicks at random. Each such line begins with "FAULT".

#include <QApplication>
#include <QDate>
#include <QMessageBox>
#include <QTimer>
#include <iostream>
#include <type_traits>

#include "desktop/desktop_windows.h"
#include "desktop/exporter.h"
#include "desktop/kvn_gen.h"
#include "settings/start_up.h"
#include "ui/qt_text.h"

namespace korvane {

namespace {

void Fault(const std::string& what) {
    std::cerr << "FAULT " << what << std::endl;
}

// Stands before the player: no answer may come for another life than the one that asks, and nobody scraps a character
// but by a Yes to that question.
class WatchedPlayer : public Player {
  public:
    explicit WatchedPlayer(Session& session, Player& player) : session_(session), player_(player) {}

    int Choose(const ChoiceQuestion& question) override {
        return Watch([&] { return player_.Choose(question); });
    }
    std::vector<int> Select(const ListQuestion& question) override {
        return Watch([&] { return player_.Select(question); });
    }
    bool Ask(const YesNoQuestion& question) override {
        return Watch([&] { return player_.Ask(question); });
    }
    void Tell(const Notice& notice) override {
        Watch([&] {
            player_.Tell(notice);
            return 0;
        });
    }
    int PickTable(const TableQuestion& question) override {
        return Watch([&] { return player_.PickTable(question); });
    }
    EndOfTermAnswer EndOfTerm(const EndOfTermQuestion& question) override {
        return Watch([&] { return player_.EndOfTerm(question); });
    }
    std::optional<TransferAnswer> Transfer(const TransferQuestion& question) override {
        return Watch([&] { return player_.Transfer(question); });
    }
    MusterPress Muster(const MusterQuestion& question) override {
        return Watch([&] { return player_.Muster(question); });
    }

    void NoteYesToScrap() { yes_ = true; }

  private:
    template <typename Put>
    std::invoke_result_t<Put> Watch(const Put& put) {
        if (asking_)
            Fault("a question inside a question");
        asking_ = true;
        yes_ = false;
        const auto lines = session_.character.History.size();
        const int terms = session_.character.TermsTotal;
        try {
            auto answer = put();
            asking_ = false;
            if (session_.character.History.size() != lines || session_.character.TermsTotal != terms)
                Fault("the character changed while a question stood open");
            std::cerr << "answered" << std::endl;
            return answer;
        } catch (const CharacterScrapped&) {
            asking_ = false;
            if (!yes_ && !QCoreApplication::closingDown())
                Fault("a character scrapped unasked");
            throw;
        }
    }

    Session& session_;
    Player& player_;
    bool asking_ = false;
    bool yes_ = false;
};

// Sees the message boxes that come and go.
class BoxWatcher : public QObject {
  public:
    explicit BoxWatcher(WatchedPlayer& player) : player_(player) {
        QCoreApplication::instance()->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (const auto* const dialog = qobject_cast<QDialog*>(watched);
            dialog != nullptr && (event->type() == QEvent::Hide || event->type() == QEvent::Close))
            std::cerr << dialog->objectName().toStdString() << (event->type() == QEvent::Hide ? " hides" : " closes")
                      << (event->spontaneous() ? " by the system " : " ") << dialog->result() << std::endl;
        if (const auto* const box = qobject_cast<QMessageBox*>(watched)) {
            if (event->type() == QEvent::Show && box->icon() == QMessageBox::Critical)
                Fault("an error box: " + box->text().toStdString());
            if (event->type() == QEvent::Hide)
                std::cerr << "box \"" << box->text().left(40).toStdString() << "\" " << box->result() << std::endl;
            if (event->type() == QEvent::Hide && box->text() == "Scrap this character?" &&
                box->result() == QMessageBox::Yes)
                player_.NoteYesToScrap();
        }
        return false;
    }

  private:
    WatchedPlayer& player_;
};

int Run() {
    ClockDice dice;
    Session session(DataFolder(HeldPath("")), {});
    ui::InputGuard guard;
    KVNGen window(session, guard, dice);
    WatchedPlayer player(session, window.player());
    const BoxWatcher boxes(player);
    window.life().UsePlayer(player);
    Exporter exporter(session, window, window.player(), guard);
    window.characterFinished = [&] {
        std::cerr << "finished" << std::endl;
        return exporter.Show(window.life().tape());
    };
    DesktopWindows windows(session, window, guard);
    if (!StartUp(session, windows, "", QDate::currentDate().month()))
        return 0;
    return QApplication::exec();
}

}  // namespace

}  // namespace korvane

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
        if (type >= QtWarningMsg && type != QtInfoMsg)
            std::cerr << (message.contains("Recursive") ? "FAULT " : "toolkit: ") << message.toStdString() << std::endl;
    });
    try {
        return korvane::Run();
    } catch (const std::exception& error) {
        korvane::Fault(error.what());
        return 1;
    }
}
