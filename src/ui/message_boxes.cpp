#include "ui/message_boxes.h"

#include "ui/qt_text.h"

namespace korvane::ui {

namespace {

QMessageBox::Icon IconOf(Icon icon) {
    switch (icon) {
        case Icon::Information:
            return QMessageBox::Information;
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Exclamation:
        case Icon::Warning:
            return QMessageBox::Warning;
        case Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

}  // namespace

void ShowMessage(InputGuard& guard, QWidget* parent, const QString& title, const QString& text, Icon icon) {
    QMessageBox box(IconOf(icon), title, text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    guard.Run(box);
}

bool AskYesNo(InputGuard& guard, QWidget* parent, const QString& title, const YesNoQuestion& question) {
    QMessageBox box(IconOf(question.icon), title, ToQt(question.text), QMessageBox::Yes | QMessageBox::No, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(question.defaultYes ? QMessageBox::Yes : QMessageBox::No);
    return guard.Run(box) == QMessageBox::Yes;
}

void ShowError(InputGuard& guard, QWidget* parent, const QString& title, const QString& text, const QString& advice,
               const QString& record) {
    QMessageBox box(QMessageBox::Critical, title, text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setInformativeText(advice);
    box.setDetailedText(record);
    guard.Run(box);
}

}  // namespace korvane::ui
