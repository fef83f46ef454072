// A hand at mouse and keyboard, which also answers the modal dialogs that a test runs into.
#pragma once

#include <QComboBox>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QObject>
#include <QWidget>
#include <deque>
#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

// Shows Qt's texts in failures as texts.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace korvane::test {

// The widget of that name. Throws when there is none, which ends the test program.
template <typename Widget>
Widget& Child(const QWidget& parent, const QString& name) {
    auto* const child = parent.findChild<Widget*>(name);
    if (child == nullptr)
        throw std::logic_error("there is no widget " + name.toStdString());
    return *child;
}

// Clicks on a widget as a mouse would, in its middle or at a place of it: through its window. Fails the test where a
// mouse wouldn't reach it: hidden, disabled, covered, or behind a modal dialog.
void RealClick(QWidget& widget);
void RealClick(QWidget& widget, QPoint place, bool twice = false);
// The same for a widget of that name.
void RealClick(const QWidget& parent, const QString& name);
// Presses a key in the widget's window, where it reaches what has the focus.
void PressKey(const QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
// Opens a combo box and chooses an entry by keys.
void ChooseInCombo(QComboBox& combo, const QString& entry);

// The name of a window; of one that has none its class.
std::string NameOf(const QWidget& window);

// Answers the modal dialogs, one after the other, as told. A dialog that isn't expected, that an answer didn't close,
// or that doesn't become active in time fails the test and is closed.
class Robot : public QObject {
  public:
    using Answer = std::function<void(QWidget& dialog)>;

    Robot();
    // Fails the test when expected dialogs didn't come.
    ~Robot() override;

    // The next dialog has this name and is answered so. A dialog that an answer leaves open waits for the next one.
    Robot& Then(const std::string& name, Answer answer);
    // The same: by a key; by a button of the message box that shows this text.
    Robot& ThenKey(const std::string& name, Qt::Key key);
    Robot& ThenMessage(const std::string& text, QMessageBox::StandardButton button);

  protected:
    // Answers the dialog, as a test or a journal wants it.
    virtual void Respond(QWidget& dialog);
    // Fails the test, once, and closes the dialog whatever it takes.
    void GiveUp(QWidget& dialog, const std::string& why);

  private:
    void Poll();

    struct Step {
        std::string name;
        Answer answer;
    };
    std::deque<Step> steps_;
    QElapsedTimer inactive_;
    std::vector<QWidget*> answering_;  // the dialogs whose answers are under way
    bool gaveUp_ = false;
};

}  // namespace korvane::test
