// The main window's form: what stands where.

#include <QAction>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

#include "desktop/kvn_gen.h"
#include "ui/looks.h"

namespace korvane {

namespace {

// A list under its label.
QWidget* Labelled(const QString& caption, ui::CopyList& list) {
    auto* const column = new QWidget;
    auto* const layout = new QVBoxLayout(column);
    layout->setContentsMargins({});
    auto* const label = new QLabel(caption);
    label->setBuddy(&list);
    layout->addWidget(label);
    layout->addWidget(&list, 1);
    return column;
}

}  // namespace

void KVNGen::SetUpMenu() {
    auto* const exit = menuBar()->addAction("&Exit");
    connect(exit, &QAction::triggered, this, [this] { Do([this] { guard_.EndProgram(0); }); });
    auto* const life = menuBar()->addMenu(tr("&Life"));
    const auto add = [&](const QString& text, const QKeySequence& keys, const std::function<void()>& act) {
        connect(life->addAction(text, keys), &QAction::triggered, this, [this, act] { Do(act); });
    };
    add(tr("&Compare careers..."), Qt::CTRL | Qt::Key_K, [this] { CompareCareers(); });
    add(tr("Another home &world"), Qt::CTRL | Qt::Key_W, [this] { RollHomeWorldAnew(); });
    add(tr("&Another life from a term on..."), Qt::CTRL | Qt::Key_T, [this] { LiveAnother(); });
    life->addSeparator();
    add(tr("&Keep a journal..."), Qt::CTRL | Qt::Key_J, [this] { journals_.AskToKeep(); });
    add(tr("&Go on from a journal..."), Qt::CTRL | Qt::Key_O, [this] { journals_.AskToGoOn(); });
    add(tr("&Journal of this character..."), Qt::CTRL | Qt::Key_S, [this] { journals_.Save(); });
    add(tr("&Export..."), Qt::CTRL | Qt::Key_E, [this] { ExportEnded(); });
    auto* const about = menuBar()->addAction("&About");
    connect(about, &QAction::triggered, this, [this] { Do([this] { ShowAbout(); }); });
}

void KVNGen::SetUpSelection() {
    auto* const form = new QFormLayout(&selectCareer_);
    const auto add = [form](const QString& label, QComboBox& combo) {
        combo.setObjectName(label.toLower());
        combo.setAccessibleName(label);
        combo.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo.setMinimumContentsLength(14);
        form->addRow(label, &combo);
    };
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    add("Race", race_);
    add("Career", career_);
    add("Assignment", assignment_);
}

void KVNGen::SetUpStatistics() {
    // It is locked while a career runs, and most wanted then.
    for (QWidget* const shown : std::initializer_list<QWidget*>{&selectCareer_, &statistics_, &characteristics_})
        ui::KeepReadable(*shown);
    auto* const columns = new QHBoxLayout(&statistics_);
    columns->addWidget(&characteristics_, 1);
    auto* const rolling = new QVBoxLayout;
    for (QWidget* const control : std::initializer_list<QWidget*>{&roll_, &roll3Drop1_, &true2D_})
        rolling->addWidget(control);
    rolling->addStretch();
    columns->addLayout(rolling);
    roll_.setObjectName("roll");
    roll_.setShortcut(Qt::CTRL | Qt::Key_R);
    roll_.setToolTip(tr("New characteristics (Ctrl+R)"));
    roll3Drop1_.setObjectName("roll3Drop1");
    true2D_.setObjectName("true2D");
    (session_.method == RollingMethod::True2D ? true2D_ : roll3Drop1_).setChecked(true);
}

void KVNGen::SetUpDetails() {
    auto* const column = new QVBoxLayout(&detailsGroup_);
    const std::array<std::pair<QLabel*, const char*>, 7> labels = {{{&age_, "age"},
                                                                    {&rank_, "rank"},
                                                                    {&allies_, "allies"},
                                                                    {&enemies_, "enemies"},
                                                                    {&contacts_, "contacts"},
                                                                    {&rivals_, "rivals"},
                                                                    {&medicalDebt_, "medicalDebt"}}};
    for (const auto& [label, name] : labels) {
        label->setObjectName(name);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        column->addWidget(label);
    }
    column->addWidget(&details_, 1);
}

QWidget* KVNGen::LeftColumn() {
    auto* const left = new QWidget;
    auto* const column = new QVBoxLayout(left);
    column->setContentsMargins({});
    next_.setObjectName("next");
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(&startCareer_);
    buttons->addWidget(&scrapAndRestart_);
    auto* const boxes = new QVBoxLayout(&optionsGroup_);
    boxes->addWidget(&options_);
    column->addWidget(&next_);
    column->addWidget(&selectCareer_);
    column->addWidget(&statistics_);
    column->addLayout(buttons);
    column->addWidget(&optionsGroup_);
    column->addStretch();
    startCareer_.setObjectName("startCareer");
    startCareer_.setShortcut(Qt::CTRL | Qt::Key_Return);
    startCareer_.setToolTip(tr("Live the character's life (Ctrl+Return)"));
    scrapAndRestart_.setObjectName("scrapAndRestart");
    // On a screen that is too low for it, or with large letters, it scrolls.
    auto* const area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setWidget(left);
    area->setFixedWidth(left->minimumSizeHint().width() + area->verticalScrollBar()->sizeHint().width());
    return area;
}

QWidget* KVNGen::Panes() {
    history_.FollowNewest();
    skills_.setMinimumWidth(skills_.fontMetrics().averageCharWidth() * 18);
    history_.setMinimumWidth(history_.fontMetrics().averageCharWidth() * 30);
    splitter_.setObjectName("splitter");
    splitter_.setChildrenCollapsible(false);
    splitter_.addWidget(Labelled("Skills", skills_));
    splitter_.addWidget(Labelled("History", history_));
    splitter_.addWidget(&detailsGroup_);
    // A screen reader takes them in the order in which they were raised.
    for (int i = 0; i < splitter_.count(); ++i)
        splitter_.widget(i)->raise();
    // In characters. The history takes most of what a wide screen has to give.
    constexpr std::array kWidths = {28, 70, 50};
    constexpr std::array kStretch = {1, 4, 2};
    QList<int> sizes;
    for (int i = 0; i < splitter_.count(); ++i) {
        const auto place = static_cast<std::size_t>(i);
        sizes << kWidths.at(place) * fontMetrics().averageCharWidth();
        splitter_.setStretchFactor(i, kStretch.at(place));
    }
    splitter_.setSizes(sizes);
    return &splitter_;
}

void KVNGen::LayOut() {
    heading_.setObjectName("heading");
    heading_.setTextFormat(Qt::PlainText);
    auto font = heading_.font();
    font.setBold(true);  // loaded when there is something to say
    heading_.hide();
    heading_.setFont(font);
    auto* const central = new QWidget;
    auto* const frame = new QHBoxLayout(central);
    frame->addWidget(LeftColumn());
    auto* const shown = new QVBoxLayout;
    shown->addWidget(&heading_);
    shown->addWidget(&life_);
    shown->addWidget(Panes(), 1);
    frame->addLayout(shown, 1);
    setCentralWidget(central);
    statusBar()->setSizeGripEnabled(false);
    statusBar()->setContentsMargins(style()->pixelMetric(QStyle::PM_LayoutLeftMargin) - 2, 0, 0, 0);
    status_.setObjectName("status");
    statusBar()->addWidget(&status_, 1);
    resize(UsualSize());
}

QSize KVNGen::UsualSize() const {
    const auto room = screen()->availableGeometry().size();
    return {std::min(room.width() * 9 / 10, fontMetrics().averageCharWidth() * 190),
            std::min(room.height() * 9 / 10, fontMetrics().lineSpacing() * 50)};
}

}  // namespace korvane
