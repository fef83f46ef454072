#include "support_ui/dialog_stage.h"

#include <QStyle>
#include <QStyleOptionButton>

namespace korvane::test {

DialogStage::DialogStage() {
    session.programTitle = "Korvane on trial";
    window.resize(700, 500);
    window.show();
}

QStringList Captions(const QWidget& dialog) {
    QStringList captions;
    for (const auto* const button : dialog.findChildren<QPushButton*>())
        captions << button->text();
    return captions;
}

bool ShowsAll(const QPushButton& button) {
    QStyleOptionButton option;
    option.initFrom(&button);
    const auto room = button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button);
    const auto text = button.fontMetrics().size(Qt::TextShowMnemonic, button.text());
    return text.width() <= room.width() && text.height() <= button.height();
}

}  // namespace korvane::test
