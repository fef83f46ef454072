// The end of a generation: the finished character goes onto a page.
#pragma once

#include <QWidget>

#include "character/KVNDeclare.h"
#include "ui/kvn_export.h"

namespace korvane {

class Exporter {
  public:
    Exporter(Session& session, QWidget& window) : session_(session), window_(window) {}

    // Shows the export dialog for the session's character until the player closes it. Throws CharacterScrapped when the
    // player scraps the character there.
    void Show();

  private:
    void RollName(ui::KVNExport& dialog);
    void Export(ui::KVNExport& dialog);
    // Tells that a page was written, and opens it when the player wants to see it.
    void TellExported(QWidget& dialog, const QString& message, const QString& page) const;
    // Carries out what a button asks for; an error is shown, and the dialog stays, so that nothing is lost.
    template <typename Action>
    void Guard(QWidget& dialog, const Action& action);

    Session& session_;
    QWidget& window_;
    bool scrapped_ = false;
};

}  // namespace korvane
