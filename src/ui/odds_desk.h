// Reckons the odds of questions, for the dialogs that ask them.
#pragma once

#include <QPointer>
#include <functional>
#include <optional>
#include <vector>

#include "character/KVNDeclare.h"
#include "play/odds_table.h"
#include "ui/background.h"
#include "ui/odds_panel.h"

namespace korvane::ui {

// What all dialogs share: whether their panels are unfolded is remembered.
class OddsDesk {
  public:
    // Of the session's life, by its rule data.
    explicit OddsDesk(const Session& session) : session_(session) {}

    // Gives the question that the life has come to; nothing: no odds can be asked for.
    std::function<play::OpenQuestion(std::vector<play::Alternative>)> openQuestion;

    using Alternatives = std::function<std::vector<play::Alternative>()>;

  private:
    friend class OddsOffer;

    void Show(OddsButton& button, const Alternatives& alternatives);
    void Stop();

    const Session& session_;
    std::optional<Background> background_;  // made when odds are asked for first
    bool open_ = false;
};

// As long as it lives, a dialog's button unfolds the odds of its question; they are reckoned while they are to be seen.
class OddsOffer {
  public:
    // `alternatives` are made when they are needed: they may have to be read.
    using Alternatives = OddsDesk::Alternatives;
    OddsOffer(OddsDesk& desk, OddsButton& button, const Alternatives& alternatives);
    ~OddsOffer();
    OddsOffer(const OddsOffer&) = delete;
    OddsOffer& operator=(const OddsOffer&) = delete;

    // The same for another question of the dialog.
    static void Make(OddsDesk& desk, OddsButton& button, const Alternatives& alternatives);

  private:
    OddsDesk& desk_;
    QPointer<OddsButton> button_;  // a message's goes with it
};

}  // namespace korvane::ui
