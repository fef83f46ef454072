#include "ui/message_boxes.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>

#include "ui/back_button.h"
#include "ui/qt_text.h"
#include "ui/recent_lines.h"

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

// Puts the way back into a box's row of buttons.
void OfferBack(QMessageBox& box, const LifeSteps* steps, OddsButton* odds = nullptr) {
    if (steps == nullptr)
        return;
    auto* const row = new QHBoxLayout;
    auto* const back = new BackButton(box);
    back->Offer(steps);
    row->addWidget(back);
    if (odds != nullptr)
        row->addWidget(odds);
    row->addStretch();
    if (auto* const grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addLayout(row, grid->rowCount(), 0, 1, grid->columnCount());
}

}  // namespace

int ShowMessage(InputGuard& guard, QWidget* parent, const QString& title, const QString& text, Icon icon,
                const LifeSteps* steps) {
    QMessageBox box(IconOf(icon), title, text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    OfferBack(box, steps);
    return guard.Run(box);
}

int AskYesNo(InputGuard& guard, QWidget* parent, const QString& title, const YesNoQuestion& question,
             const LifeSteps* steps, std::span<const std::string> recent,
             const std::function<void(OddsButton& odds)>& offerOdds) {
    QMessageBox box(IconOf(question.icon), title, ToQt(question.text), QMessageBox::Yes | QMessageBox::No, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(question.defaultYes ? QMessageBox::Yes : QMessageBox::No);
    AddRecentLines(box, recent);
    auto* const odds = offerOdds && steps != nullptr ? new OddsButton(box) : nullptr;
    OfferBack(box, steps, odds);
    if (odds != nullptr)
        offerOdds(*odds);
    return guard.Run(box);
}

QString AskForFile(InputGuard& guard, QWidget& parent, const QString& title, const QString& filter) {
    QFileDialog dialog(&parent, title, QDir::currentPath(), filter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return guard.Run(dialog) == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString AskForNewFile(InputGuard& guard, QWidget& parent, const QString& title, const QString& proposed,
                      bool replaces) {
    QFileDialog dialog(&parent, title, QDir::homePath());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !replaces);
    dialog.setDefaultSuffix(QFileInfo(proposed).suffix());
    dialog.selectFile(proposed);
    return guard.Run(dialog) == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
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
