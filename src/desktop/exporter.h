// The end of a generation: the finished character goes onto a page.
#pragma once

#include <QString>
#include <QStringList>
#include <QTextDocument>
#include <QWidget>
#include <memory>
#include <string>

#include "character/KVNDeclare.h"
#include "output/character_document.h"
#include "output/journal/tape.h"
#include "output/page_file.h"
#include "ui/input_guard.h"
#include "ui/kvn_export.h"

namespace korvane {

class Exporter {
  public:
    // `player` picks among names.
    Exporter(Session& session, QWidget& window, Player& player, ui::InputGuard& guard)
        : session_(session), window_(window), player_(player), guard_(guard) {}

    // Shows the export dialog for the session's character, whose life stands on the tape, until the player closes it.
    // Returns whether the player goes back into the life.
    // `mayGoBack`: whether that is still possible; else it is the last character's dialog again.
    bool Show(const journal::Tape& tape, bool mayGoBack = true);

  private:
    // What a document says of the character, with the name that the player gave.
    DocumentLabels LabelsWith(const std::string& name) const;
    void RollName(ui::KVNExport& dialog);
    void Export(ui::KVNExport& dialog, const journal::Tape& tape);
    // What was written beside a page.
    struct Others {
        QStringList told;  // each file, or why it wasn't written
        bool failed = false;
        QString printed;  // the PDF file; empty for none
    };
    // Writes what the player wants beside the page.
    Others WriteOthers(const ui::KVNExport& dialog, const QString& page, const journal::Tape& tape) const;
    // Tells what was written, and opens what the player wants to see.
    void TellExported(QWidget& dialog, const QString& message, const Others& others, const QString& page) const;
    // The page as it would be now; nothing where a fault keeps it from that.
    std::unique_ptr<QTextDocument> PageOf(const ui::KVNExport& dialog) const;
    HeldPath TemplateOf(const ui::KVNExport& dialog) const;
    // Carries out what a button asks for; an error is shown, and the dialog stays, so that nothing is lost.
    template <typename Action>
    void Guard(QWidget& dialog, const Action& action);

    Session& session_;
    QWidget& window_;
    Player& player_;
    ClockDice dice_;
    ui::InputGuard& guard_;
    // Of the last character, whose dialog may be opened again.
    QString name_;
    DocumentLabels labels_;
    bool exported_ = false;
    bool working_ = false;  // a button's work asks something itself
};

}  // namespace korvane
