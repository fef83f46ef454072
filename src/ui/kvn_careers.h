// What the careers of a race hold for the character that waits for its start, side by side.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <map>
#include <string>
#include <utility>

#include "base/paths.h"
#include "play/career_odds.h"
#include "ui/background.h"

namespace korvane::ui {

// A row a career, which opens into its assignments; a column a figure, by each of which the rows can be sorted. The
// figures come while the window is there, and become surer.
class KVNCareers : public QDialog {
  public:
    static constexpr int kTerms = 4;

    // By the rule data of that folder.
    KVNCareers(QWidget* parent, const HeldPath& rules, const play::Applicant& applicant, const QString& who);

    // The career that was chosen and its assignment, which is empty where a whole career was.
    const std::pair<std::string, std::string>& chosen() const { return chosen_; }

  private:
    void LayOut(const QString& who);
    void Show(const play::CareerComparison& found);
    void Fill(QTreeWidgetItem& item, const play::CareerPlace& place);
    void FitColumns();
    void SortBy(int column);
    void Choose();

    QLabel heading_;
    QLabel note_;
    QComboBox sort_;
    QTreeWidget table_;
    QPushButton choose_;
    QPushButton close_;
    std::map<std::pair<std::string, std::string>, QTreeWidgetItem*> items_;
    std::pair<std::string, std::string> chosen_;
    Background background_;
};

}  // namespace korvane::ui
