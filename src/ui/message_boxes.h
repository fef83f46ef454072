// Message boxes, as the rules and the program's start show them.
#pragma once

#include <QDialog>
#include <QMessageBox>
#include <QString>
#include <functional>
#include <span>
#include <string>

#include "character/player.h"
#include "ui/input_guard.h"
#include "ui/odds_panel.h"

namespace korvane::ui {

// A notice with an OK button. Of the rules' own, `steps` offer the way back; the result is that of a way taken, or
// whatever else.
int ShowMessage(InputGuard& guard, QWidget* parent, const QString& title, const QString& text, Icon icon,
                const LifeSteps* steps = nullptr);
// A question with Yes and No; Escape answers No. The result is QMessageBox::Yes, or that of a way taken. The last of
// `recent`, lines of the history, stand above it. `offerOdds` is given the button of its odds.
int AskYesNo(InputGuard& guard, QWidget* parent, const QString& title, const YesNoQuestion& question,
             const LifeSteps* steps = nullptr, std::span<const std::string> recent = {},
             const std::function<void(OddsButton& odds)>& offerOdds = {});
// The file that the player chooses to read, and the one to write; empty when cancelled. Where a file that is there
// would be replaced, the dialog asks.
QString AskForFile(InputGuard& guard, QWidget& parent, const QString& title, const QString& filter);
QString AskForNewFile(InputGuard& guard, QWidget& parent, const QString& title, const QString& proposed,
                      bool replaces = true);
// An error. `advice` says what happens next; `record`, if any, can be looked at and copied.
void ShowError(InputGuard& guard, QWidget* parent, const QString& title, const QString& text, const QString& advice,
               const QString& record = {});

}  // namespace korvane::ui
