#include "ui/back_button.h"

#include <QStyle>

namespace korvane::ui {

BackButton::BackButton(QDialog& dialog)
    : QToolButton(&dialog),
      dialog_(dialog),
      back_(Add(tr("&Back"), Qt::CTRL | Qt::Key_Z, kWentBack)),
      forward_(Add(tr("&Forward"), Qt::CTRL | Qt::SHIFT | Qt::Key_Z, kWentForward)),
      history_(Add(tr("Back by the &History..."), Qt::CTRL | Qt::Key_H, kWentToHistory)),
      leave_(Add(tr("&Leave, to go on from the journal later"), Qt::CTRL | Qt::Key_L, kWentAway)) {
    setObjectName("back");
    setText(tr("Back"));
    setIcon(style()->standardIcon(QStyle::SP_ArrowBack));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setAccessibleName(tr("Back"));
    setToolTip(
        tr("Ask the last question again (Ctrl+Z); the menu leads forward again (Ctrl+Shift+Z), and to any "
           "question of the history (Ctrl+H)"));
    setFocusPolicy(Qt::TabFocus);
    setPopupMode(QToolButton::MenuButtonPopup);
    setMenu(&menu_);
    setEnabled(false);
    connect(this, &QToolButton::clicked, back_, &QAction::trigger);
}

QAction* BackButton::Add(const QString& text, const QKeySequence& keys, int result) {
    auto* const action = menu_.addAction(text);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WindowShortcut);
    dialog_.addAction(action);
    connect(action, &QAction::triggered, this, [this, result] {
        if (dialog_.isVisible())  // a shortcut acts a moment later, when the dialog may have gone
            dialog_.done(result);
    });
    return action;
}

void BackButton::Offer(const LifeSteps* steps) {
    const bool may_go_back = steps != nullptr && steps->MayGoBack();
    const bool may_go_forward = steps != nullptr && steps->MayGoForward();
    const bool may_leave = steps != nullptr && steps->IsKept();
    setEnabled(may_go_back || may_go_forward || may_leave);
    leave_->setEnabled(may_leave);
    back_->setEnabled(may_go_back);
    history_->setEnabled(may_go_back);
    forward_->setEnabled(may_go_forward);
}

}  // namespace korvane::ui
