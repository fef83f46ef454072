// Message boxes, as the rules and the program's start show them.
#pragma once

#include <QDialog>
#include <QMessageBox>
#include <QString>

#include "character/player.h"

namespace korvane::ui {

// Runs a dialog until it is answered. Returns its result. All modal dialogs run here.
int RunModal(QDialog& dialog);

// A notice with an OK button.
void ShowMessage(QWidget* parent, const QString& title, const QString& text, Icon icon);
// A question with Yes and No; Escape answers No.
bool AskYesNo(QWidget* parent, const QString& title, const YesNoQuestion& question);
// An error. `advice` says what happens next; `record`, if any, can be looked at and copied.
void ShowError(QWidget* parent, const QString& title, const QString& text, const QString& advice,
               const QString& record = {});

}  // namespace korvane::ui
