#include "ui/kvn_export.h"

#include <QGridLayout>
#include <QHBoxLayout>

#include "ui/back_button.h"

namespace korvane::ui {

namespace {

void Connect(const QPushButton& button, const std::function<void()>& action) {
    QObject::connect(&button, &QPushButton::clicked, &button, [&action] {
        if (action)
            action();
    });
}

}  // namespace

KVNExport::KVNExport(const QString& programTitle, const QStringList& templates, const QString& open, QWidget* parent)
    : QDialog(parent),
      nameLabel_(tr("&Name")),
      rollName_(tr("&Roll Name")),
      templatesLabel_(tr("&Template")),
      pdf_(tr("Write a &PDF file too")),
      journal_(tr("Write the &journal too")),
      open_(tr("Still to decide: %1").arg(open)),
      export_(tr("&Export")),
      close_(tr("&Close")),
      end_(tr("E&xit Korvane")),
      back_(tr("&Back")) {
    setObjectName("KVNExport");
    setWindowTitle(programTitle);
    setModal(true);
    name_.setObjectName("name");
    name_.setAccessibleName(tr("Name"));
    rollName_.setObjectName("rollName");
    templates_.setObjectName("templates");
    templates_.setAccessibleName(tr("Template"));
    templates_.addItems(templates);
    templates_.setCurrentRow(0);
    pdf_.setObjectName("pdf");
    journal_.setObjectName("journal");
    open_.setObjectName("open");
    open_.setTextFormat(Qt::PlainText);
    open_.setWordWrap(true);
    if (open.isEmpty())
        open_.hide();
    export_.setObjectName("export");
    export_.setEnabled(!templates.isEmpty());
    export_.setDefault(true);
    close_.setObjectName("close");
    end_.setObjectName("end");
    back_.setObjectName("back");
    back_.setShortcut(Qt::CTRL | Qt::Key_Z);
    back_.setToolTip(tr("Back into the life: the last question is asked again (Ctrl+Z)"));
    back_.setAutoDefault(false);
    connect(&back_, &QPushButton::clicked, this, [this] { done(kWentBack); });
    Connect(rollName_, rollName);
    Connect(export_, exportPage);
    Connect(end_, endProgram);
    connect(&close_, &QPushButton::clicked, this, &KVNExport::reject);
    connect(&templates_, &QListWidget::itemDoubleClicked, &export_, &QPushButton::click);
    LayOut();
}

void KVNExport::LayOut() {
    nameLabel_.setBuddy(&name_);
    templatesLabel_.setBuddy(&templates_);
    auto* const grid = new QGridLayout(this);
    grid->addWidget(&nameLabel_, 0, 0);
    grid->addWidget(&name_, 0, 1);
    grid->addWidget(&rollName_, 0, 2);
    grid->addWidget(&templatesLabel_, 1, 0, Qt::AlignTop);
    grid->addWidget(&templates_, 1, 1, 1, 2);
    auto* const more = new QHBoxLayout;
    more->addWidget(&pdf_);
    more->addWidget(&journal_);
    more->addStretch();
    grid->addLayout(more, 2, 1, 1, 2);
    grid->setColumnStretch(1, 1);
    auto* const buttons = new QHBoxLayout;
    for (auto* const button : {&back_, &export_, &close_, &end_})
        buttons->addWidget(button);
    grid->addWidget(&open_, 3, 0, 1, 3);
    grid->addLayout(buttons, 4, 0, 1, 3);
    name_.setFocus();
    resize(fontMetrics().averageCharWidth() * 64, fontMetrics().lineSpacing() * 16);
}

void KVNExport::reject() {
    if (exported_ || !mayClose || mayClose())
        QDialog::reject();
}

QString KVNExport::templateName() const {
    const auto* const item = templates_.currentItem();
    return item == nullptr ? QString() : item->text();
}

}  // namespace korvane::ui
