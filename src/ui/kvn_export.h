// The export of the finished character: its name, the template of its page, and where it goes.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <functional>

#include "ui/dialog.h"

namespace korvane::ui {

class KVNExport : public QDialog {
  public:
    // `open` is what the character still leaves to be decided; empty for nothing.
    KVNExport(const QString& programTitle, const QStringList& templates, const QString& open, QWidget* parent);

    // What the buttons do. No exception may come out of them.
    std::function<void()> rollName;
    std::function<void()> exportPage;
    std::function<void()> endProgram;

    // Asked before the dialog is closed without an export.
    std::function<bool()> mayClose;
    void NoteExported() { exported_ = true; }
    void MayGoBack(bool may) { back_.setEnabled(may); }

    void reject() override;

    void SetName(const QString& name) { name_.setText(name); }
    QString name() const { return name_.text(); }
    // The selected template's file name; empty when there is none.
    QString templateName() const;
    bool wantsJournal() const { return journal_.isChecked(); }
    bool wantsPdf() const { return pdf_.isChecked(); }

  private:
    void LayOut();

    QLabel nameLabel_;
    QLineEdit name_;
    QPushButton rollName_;
    QLabel templatesLabel_;
    QListWidget templates_;
    QCheckBox pdf_;
    QCheckBox journal_;
    QLabel open_;
    QPushButton export_;
    QPushButton close_;
    QPushButton end_;
    QPushButton back_;
    bool exported_ = false;
};

}  // namespace korvane::ui
