// The history as a story: terms as headings, what happened as prose, gains and losses by sign and colour, the rest
// dimmed.
#pragma once

#include <QStyledItemDelegate>
#include <vector>

#include "output/story.h"
#include "ui/copy_list.h"

namespace korvane::ui {

// A list whose lines are those of a history. They copy as they stand.
class StoryList : public CopyList {
  public:
    StoryList(const QString& objectName, const QString& accessibleName);

    // Shows the history of a character. Lines that have come since the last time stand out.
    void Tell(const CharacterRecord& character, const RaceRecord& race);

  protected:
    // The newest line stands at the lower end, where the dialogs leave it in sight, also of a short history.
    void updateGeometries() override;

  private:
    static void ShowAs(QListWidgetItem& line, const StoryLine& told);
};

class StoryDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static constexpr int kKindRole = Qt::UserRole + 1;
    static constexpr int kHeadingRole = Qt::UserRole + 2;
    static constexpr int kNewRole = Qt::UserRole + 3;
    static constexpr int kMarkRole = Qt::UserRole + 4;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace korvane::ui
