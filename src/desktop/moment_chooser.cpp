#include "desktop/moment_chooser.h"

#include <QAction>
#include <QEventLoop>

namespace korvane {

std::optional<std::size_t> MomentOfRow(const play::RecordedLife& life, int row) {
    std::optional<std::size_t> moment;
    for (std::size_t i = 0; i < life.MomentCount() && life.MomentAt(i).history <= static_cast<std::size_t>(row); ++i)
        moment = i;
    return moment;
}

std::optional<std::size_t> ChooseMoment(ui::StoryList& history, const play::RecordedLife& life, ui::InputGuard& guard) {
    QEventLoop loop;
    std::optional<std::size_t> chosen;
    QAction go_back(QObject::tr("Go back to here"));
    go_back.setShortcut(Qt::Key_Return);
    QAction stay(QObject::tr("Return to the question"));
    stay.setShortcut(Qt::Key_Escape);
    for (auto* const action : {&go_back, &stay}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        history.addAction(action);
    }
    const auto choose = [&] {
        chosen = MomentOfRow(life, history.currentRow());
        if (chosen)
            loop.quit();
    };
    // The loop is the connections' context: they end with it.
    QObject::connect(&history, &QListWidget::itemDoubleClicked, &loop, choose);
    QObject::connect(&go_back, &QAction::triggered, &loop, choose);
    QObject::connect(&stay, &QAction::triggered, &loop, &QEventLoop::quit);
    QObject::connect(&history, &QListWidget::currentRowChanged, &loop,
                     [&](int row) { go_back.setEnabled(MomentOfRow(life, row).has_value()); });
    history.activateWindow();
    history.setFocus();
    history.setCurrentRow(history.count() - 1);
    const ui::InputGuard::Asking asking(guard, history);
    loop.exec();
    return chosen;
}

}  // namespace korvane
