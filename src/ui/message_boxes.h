// Message boxes, as the rules and the program's start show them.
#pragma once

#include <QDialog>
#include <QMessageBox>
#include <QString>

#include "character/player.h"
#include "ui/input_guard.h"

namespace korvane::ui {

// A notice with an OK button.
void ShowMessage(InputGuard& guard, QWidget* parent, const QString& title, const QString& text, Icon icon);
// A question with Yes and No; Escape answers No.
bool AskYesNo(InputGuard& guard, QWidget* parent, const QString& title, const YesNoQuestion& question);
// An error. `advice` says what happens next; `record`, if any, can be looked at and copied.
void ShowError(InputGuard& guard, QWidget* parent, const QString& title, const QString& text, const QString& advice,
               const QString& record = {});

}  // namespace korvane::ui
