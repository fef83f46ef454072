// A list of lines that can be copied, as the windows show them everywhere.
#pragma once

#include <QListWidget>
#include <QString>
#include <QStringList>

#include "ui/qt_text.h"

namespace korvane::ui {

class CopyList : public QListWidget {
  public:
    // Objects are found by their names in tests; `accessibleName` is what a screen reader says.
    CopyList(const QString& objectName, const QString& accessibleName, QWidget* parent = nullptr);

    // Shows these lines. Lines that stood already stay as they are, so a growing list costs only what is new.
    template <typename Texts>
    void SetLines(const Texts& texts) {
        int row = 0;
        for (const auto& text : texts)
            SetLine(row++, ToQt(text));
        Truncate(row);
    }
    QStringList Lines() const;
    // Takes the height of all its lines, none of which is wrapped.
    void ShowAllLines();
    // From now on the last line stays in view, until the player scrolls away from it.
    void FollowNewest();
    // The marked lines, or all when none is marked, go to the clipboard.
    void Copy() const;

    QSize sizeHint() const override;

  protected:
    // Digits are left to the dialog, which may have buttons for them.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool atEnd_ = true;

    void SetLine(int row, const QString& text);
    void Truncate(int count);
};

}  // namespace korvane::ui
