#include "ui/kvn_export.h"

#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

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
      portraitLabel_(tr("Portrait")),
      paste_(tr("Paste P&ortrait")),
      noPortrait_(tr("No Portr&ait")),
      pdf_(tr("Write a &PDF file too")),
      journal_(tr("Write the &journal too")),
      open_(tr("Still to decide: %1").arg(open)),
      export_(tr("&Export")),
      close_(tr("&Close")),
      end_(tr("E&xit Korvane")),
      back_(tr("&Back")),
      pageLabel_(tr("The pa&ge")) {
    setObjectName("KVNExport");
    setWindowTitle(programTitle);
    setModal(true);
    SetUp(templates, open);
    ConnectAll();
    LayOut();
}

void KVNExport::SetUp(const QStringList& templates, const QString& open) {
    name_.setObjectName("name");
    name_.setAccessibleName(tr("Name"));
    name_.installEventFilter(this);
    rollName_.setObjectName("rollName");
    destination_.setObjectName("destination");
    templates_.setObjectName("templates");
    templates_.setAccessibleName(tr("Template"));
    templates_.addItems(templates);
    templates_.setCurrentRow(0);
    paste_.setObjectName("paste");
    paste_.setToolTip(tr("The picture that was copied becomes the portrait (Ctrl+V)"));
    noPortrait_.setObjectName("noPortrait");
    pdf_.setObjectName("pdf");
    journal_.setObjectName("journal");
    open_.setObjectName("open");
    for (auto* const label : {&destination_, &open_}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    open_.setVisible(!open.isEmpty());
    export_.setObjectName("export");
    export_.setEnabled(!templates.isEmpty());
    export_.setDefault(true);
    close_.setObjectName("close");
    end_.setObjectName("end");
    back_.setObjectName("back");
    back_.setShortcut(Qt::CTRL | Qt::Key_Z);
    back_.setToolTip(tr("Back into the life: the last question is asked again (Ctrl+Z)"));
    back_.setAutoDefault(false);
    page_.setObjectName("page");
    page_.setAccessibleName(tr("The page"));
    page_.setOpenLinks(false);
    page_.setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    constexpr int kSoon = 50;  // in milliseconds
    later_.setSingleShot(true);
    later_.setInterval(kSoon);
}

void KVNExport::ConnectAll() {
    connect(&back_, &QPushButton::clicked, this, [this] { done(kWentBack); });
    Connect(rollName_, rollName);
    Connect(export_, exportPage);
    Connect(end_, endProgram);
    connect(&close_, &QPushButton::clicked, this, &KVNExport::reject);
    connect(&paste_, &QPushButton::clicked, this, &KVNExport::Paste);
    // Where the name field has the input, it asks first.
    connect(new QShortcut(QKeySequence::Paste, this), &QShortcut::activated, this, &KVNExport::Paste);
    connect(&noPortrait_, &QPushButton::clicked, this, [this] { portrait_.Clear(); });
    connect(&templates_, &QListWidget::itemDoubleClicked, &export_, &QPushButton::click);
    connect(&name_, &QLineEdit::textChanged, &later_, qOverload<>(&QTimer::start));
    connect(&templates_, &QListWidget::currentRowChanged, &later_, qOverload<>(&QTimer::start));
    portrait_.changed = [this] { later_.start(); };
    connect(&later_, &QTimer::timeout, this, &KVNExport::ShowPage);
}

QWidget* KVNExport::Fields() {
    nameLabel_.setBuddy(&name_);
    templatesLabel_.setBuddy(&templates_);
    auto* const fields = new QWidget;
    auto* const grid = new QGridLayout(fields);
    grid->setContentsMargins({});
    grid->addWidget(&nameLabel_, 0, 0);
    grid->addWidget(&name_, 0, 1);
    grid->addWidget(&rollName_, 0, 2);
    grid->addWidget(&destination_, 1, 1, 1, 2);
    grid->addWidget(&templatesLabel_, 2, 0, Qt::AlignTop);
    grid->addWidget(&templates_, 2, 1, 1, 2);
    grid->setRowStretch(2, 1);
    grid->addWidget(&portraitLabel_, 3, 0, Qt::AlignTop);
    auto* const picture = new QHBoxLayout;
    picture->addWidget(&portrait_);
    auto* const acts = new QVBoxLayout;
    acts->addWidget(&paste_);
    acts->addWidget(&noPortrait_);
    acts->addStretch();
    picture->addLayout(acts);
    picture->addStretch();
    grid->addLayout(picture, 3, 1, 1, 2);
    auto* const more = new QHBoxLayout;
    more->addWidget(&pdf_);
    more->addWidget(&journal_);
    more->addStretch();
    grid->addLayout(more, 4, 1, 1, 2);
    grid->addWidget(&open_, 5, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    return fields;
}

void KVNExport::LayOut() {
    pageLabel_.setBuddy(&page_);
    auto* const grid = new QGridLayout(this);
    grid->addWidget(Fields(), 0, 0, 2, 1);
    grid->addWidget(&pageLabel_, 0, 1);
    grid->addWidget(&page_, 1, 1);
    grid->setColumnStretch(0, 2);
    grid->setColumnStretch(1, 3);
    grid->setRowStretch(1, 1);
    auto* const buttons = new QHBoxLayout;
    for (auto* const button : {&back_, &export_, &close_, &end_})
        buttons->addWidget(button);
    grid->addLayout(buttons, 2, 0, 1, 2);
    setTabOrder(&rollName_, &templates_);
    name_.setFocus();
    const auto room = screen()->availableGeometry().size() * 9 / 10;
    resize(QSize(fontMetrics().averageCharWidth() * 140, fontMetrics().lineSpacing() * 34).boundedTo(room));
}

void KVNExport::ShowPage() {
    later_.stop();
    destination_.setText(destination ? destination() : QString());
    auto document = makePage ? makePage() : nullptr;
    if (!document)
        document = std::make_unique<QTextDocument>();
    const int place = page_.verticalScrollBar()->value();
    page_.setDocument(document.get());
    document_ = std::move(document);
    page_.verticalScrollBar()->setValue(place);
}

void KVNExport::Paste() {
    const auto* const copied = QGuiApplication::clipboard()->mimeData();
    if (copied != nullptr)
        portrait_.Take(*copied);
}

bool KVNExport::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !static_cast<const QKeyEvent*>(event)->matches(QKeySequence::Paste))
        return false;
    const auto* const copied = QGuiApplication::clipboard()->mimeData();
    return copied != nullptr && !copied->hasText() && portrait_.Take(*copied);
}

void KVNExport::reject() {
    if (!mayClose || mayClose())
        QDialog::reject();
}

QString KVNExport::templateName() const {
    const auto* const item = templates_.currentItem();
    return item == nullptr ? QString() : item->text();
}

}  // namespace korvane::ui
