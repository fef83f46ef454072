// The export of the finished character: its name, the template of its page, its portrait, and where it all goes.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTimer>
#include <functional>
#include <memory>

#include "ui/dialog.h"
#include "ui/portrait_box.h"

namespace korvane::ui {

class KVNExport : public QDialog {
  public:
    // `open` is what the character still leaves to be decided; empty for nothing.
    KVNExport(const QString& programTitle, const QStringList& templates, const QString& open, QWidget* parent);

    // What the buttons do. No exception may come out of them.
    std::function<void()> rollName;
    std::function<void()> exportPage;
    std::function<void()> endProgram;
    // Makes the page as it would be now; nothing where it can't be made.
    std::function<std::unique_ptr<QTextDocument>()> makePage;
    // Says where the page goes.
    std::function<QString()> destination;

    // Asked before the dialog is closed.
    std::function<bool()> mayClose;
    void MayGoBack(bool may) { back_.setEnabled(may); }
    // Shows the page and where it goes; also a moment after each change.
    void ShowPage();

    void reject() override;

    void SetName(const QString& name) { name_.setText(name); }
    QString name() const { return name_.text(); }
    // The selected template's file name; empty when there is none.
    QString templateName() const;
    // A picture that is new; none otherwise.
    const QImage& portrait() const { return portrait_.picture(); }
    bool wantsJournal() const { return journal_.isChecked(); }
    bool wantsPdf() const { return pdf_.isChecked(); }

  protected:
    // A picture can be pasted while a name is typed.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void SetUp(const QStringList& templates, const QString& open);
    void ConnectAll();
    void LayOut();
    QWidget* Fields();
    void Paste();

    QLabel nameLabel_;
    QLineEdit name_;
    QPushButton rollName_;
    QLabel destination_;
    QLabel templatesLabel_;
    QListWidget templates_;
    QLabel portraitLabel_;
    PortraitBox portrait_;
    QPushButton paste_;
    QPushButton noPortrait_;
    QCheckBox pdf_;
    QCheckBox journal_;
    QLabel open_;
    QPushButton export_;
    QPushButton close_;
    QPushButton end_;
    QPushButton back_;
    QLabel pageLabel_;
    std::unique_ptr<QTextDocument> document_;  // what the page shows
    QTextBrowser page_;
    QTimer later_;
};

}  // namespace korvane::ui
