#include "desktop/exporter.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QMessageBox>
#include <QPainter>
#include <QScopeGuard>
#include <QUrl>
#include <algorithm>
#include <array>
#include <exception>
#include <filesystem>
#include <functional>
#include <thread>
#include <utility>

#include "base/error.h"
#include "base/files.h"
#include "base/text.h"
#include "character/seams_guard.h"
#include "engine/names.h"
#include "output/journal/lines.h"
#include "output/page_export.h"
#include "output/page_file.h"
#include "output/summary_texts.h"
#include "output/targets/targets.h"
#include "pdf/page_pdf.h"
#include "play/life.h"
#include "ui/back_button.h"
#include "ui/message_boxes.h"
#include "ui/qt_text.h"

namespace korvane {

using ui::ToQt;

namespace {

// Replaces the file, whole. Throws IoError.
void WritePortrait(const QImage& picture, const std::string& file) {
    constexpr QSize kLargest(1200, 1600);
    const bool is_large = picture.width() > kLargest.width() || picture.height() > kLargest.height();
    const auto small = is_large ? picture.scaled(kLargest, Qt::KeepAspectRatio, Qt::SmoothTransformation) : picture;
    QImage opaque(small.size(), QImage::Format_RGB32);
    opaque.fill(Qt::white);  // where it is transparent; the file knows no such
    QPainter(&opaque).drawImage(0, 0, small);
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    if (!opaque.save(&bytes, "JPG"))
        throw IoError(file, "can't be written", "the toolkit writes no pictures of this kind");
    ReplaceFile(file, {bytes.data().constData(), static_cast<std::size_t>(bytes.data().size())});
}

// Does the work in a thread of its own while the windows go on being painted. Nobody is heard meanwhile.
void DoAside(const std::function<void()>& work) {
    QEventLoop loop;
    std::exception_ptr error;
    std::thread thread([&] {
        try {
            work();
        } catch (...) {
            error = std::current_exception();
        }
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    thread.join();
    if (error)
        std::rethrow_exception(error);
}

// Makes the PDF file of a page, and returns how that was done. Throws IoError.
QString WritePdf(const QString& page, const QString& printed) {
    pdf::PdfMaker maker;
    maker.aside = DoAside;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto normal = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
    return maker.Write(page, printed);
}

// Where what is exported under this name goes, and what it meets there.
QString DestinationOf(const QString& name, const char* ending) {
    const auto path = QString::fromStdString(PagePath(name.toStdString(), ending));
    if (path.isEmpty())
        return QObject::tr("There is no profile folder to write to: neither USERPROFILE nor HOME is set.");
    auto told = QObject::tr("To %1").arg(path);
    if (QFileInfo::exists(path))
        told += QObject::tr(", replaces an older file");
    if (QFileInfo::exists(QString::fromStdString(PortraitPath(name.toStdString()))))
        told += QObject::tr("; there is a portrait of that name");
    if (LettersOnly(name.toStdString()).empty())
        told += QObject::tr(". Names without letters a to z all share this hidden file.");
    return told;
}

// What a character can be exported as beside a page, for other programs.
struct Target {
    const char* caption;
    const char* ending;
    std::string (*make)(const Session& session, const DocumentLabels& labels);
};
constexpr std::array<Target, 5> kTargets = {{
    {"Document (JSON)", ".json",
     [](const Session& session, const DocumentLabels& labels) {
         auto second = labels;
         second.form = DocumentForm::Second;
         return CharacterDocument(session, second) + "\n";
     }},
    {"Notes (Markdown)", ".md", targets::Markdown},
    {"Table (CSV)", ".csv",
     [](const Session& session, const DocumentLabels& labels) {
         return targets::TableHead() + targets::TableRow(session, labels);
     }},
    {"Journal entry of a virtual tabletop", ".entry.json",
     [](const Session& session, const DocumentLabels& labels) {
         return targets::JournalEntryHead(labels.name.value_or("")) + targets::JournalEntryPage(session, labels) +
                targets::JournalEntryEnd();
     }},
    {"Actor of a virtual tabletop", ".actor.json", targets::Actor},
}};

const Target* TargetNamed(const QString& caption) {
    const auto target = std::ranges::find_if(kTargets, [&](const Target& each) { return caption == each.caption; });
    return target == kTargets.end() ? nullptr : &*target;
}

}  // namespace

template <typename Action>
void Exporter::Guard(QWidget& dialog, const Action& action) {
    if (std::exchange(working_, true))
        return;
    try {
        action();
    } catch (const std::exception& error) {
        ui::ShowError(guard_, &dialog, ToQt(session_.programTitle), QString::fromStdString(error.what()),
                      QObject::tr("The character is still here; you can try again."));
    }
    working_ = false;
}

bool Exporter::Show(const journal::Tape& tape, bool mayGoBack) {
    QStringList templates;
    for (const auto& name : TemplateNames(session_.data.location()))
        templates << ToQt(name);
    for (const auto& target : kTargets)
        templates << QObject::tr(target.caption);
    labels_ = play::LabelsOf(tape);
    ui::KVNExport dialog(ToQt(session_.programTitle), templates, ToQt(OpenPointsLine(session_.character)), &window_);
    dialog.MayGoBack(mayGoBack);
    if (mayGoBack) {
        name_.clear();
        exported_ = false;
    }
    dialog.SetName(name_);
    dialog.mayClose = [&] {
        return exported_ ||
               ui::AskYesNo(guard_, &dialog, ToQt(session_.programTitle),
                            {"The character has not been exported. Close all the same?", {}, Icon::Question, false}) ==
                   QMessageBox::Yes;
    };
    dialog.rollName = [&] { Guard(dialog, [&] { RollName(dialog); }); };
    dialog.exportPage = [&] { Guard(dialog, [&] { Export(dialog, tape); }); };
    dialog.makePage = [&] { return PageOf(dialog); };
    dialog.destination = [&] {
        const auto* const target = TargetNamed(dialog.templateName());
        return DestinationOf(dialog.name(), target != nullptr ? target->ending : kPageEnding);
    };
    dialog.ShowPage();
    dialog.endProgram = [&] {
        if (working_)
            return;
        dialog.done(QDialog::Rejected);
        guard_.EndProgram(0);
    };
    const bool went_back = guard_.Run(dialog) == ui::kWentBack;
    name_ = dialog.name();
    return went_back;
}

void Exporter::RollName(ui::KVNExport& dialog) {
    // A name is none of the life's: nothing of it goes onto the tape.
    const SeamsGuard guard(session_.seams);
    session_.seams.dice = &dice_;
    session_.seams.player = &player_;
    if (const auto name = korvane::RollName(session_))
        dialog.SetName(ToQt(*name));
}

HeldPath Exporter::TemplateOf(const ui::KVNExport& dialog) const {
    return session_.data.location() + dialog.templateName().toStdString();
}

std::unique_ptr<QTextDocument> Exporter::PageOf(const ui::KVNExport& dialog) const {
    const auto name = dialog.name().toStdString();
    if (dialog.templateName().isEmpty())
        return nullptr;
    try {
        QString html;
        if (const auto* const target = TargetNamed(dialog.templateName()))
            html = QStringLiteral("<pre style=\"white-space: pre-wrap\">%1</pre>")
                       .arg(ToQt(target->make(session_, LabelsWith(name))).toHtmlEscaped());
        else
            for (const auto& line : FillTemplate(ReadTemplate(TemplateOf(dialog)).lines, session_, name))
                html += ToQt(line) + QLatin1Char('\n');
        const auto path = PagePath(name);
        return pdf::MakeDocument(html, QString::fromStdString(path.empty() ? PageFileName(name) : path),
                                 dialog.portrait());
    } catch (const std::exception&) {
        return nullptr;  // the export itself tells the fault
    }
}

DocumentLabels Exporter::LabelsWith(const std::string& name) const {
    auto labels = labels_;
    labels.name = name;
    return labels;
}

void Exporter::Export(ui::KVNExport& dialog, const journal::Tape& tape) {
    const auto name = dialog.name().toStdString();
    const auto* const target = TargetNamed(dialog.templateName());
    const auto outcome = target != nullptr ? ExportBytes(target->make(session_, LabelsWith(name)), name, target->ending)
                                           : ExportCharacter(session_, TemplateOf(dialog), name);
    if (outcome.path.empty()) {
        ui::ShowMessage(guard_, &dialog, ToQt(session_.programTitle), ToQt(outcome.message), Icon::None);
        return;
    }
    const auto page = QString::fromStdString(outcome.path);
    const auto others = WriteOthers(dialog, page, tape);
    exported_ = true;
    dialog.ShowPage();  // it replaces itself from now on
    TellExported(dialog, ToQt(outcome.message), others, page);
}

Exporter::Others Exporter::WriteOthers(const ui::KVNExport& dialog, const QString& page,
                                       const journal::Tape& tape) const {
    Others others;
    // The page is there, whatever becomes of the others.
    const auto write = [&others](const auto& action) {
        try {
            others.told << action();
        } catch (const std::exception& error) {
            others.failed = true;
            others.told << QString::fromUtf8(error.what());
        }
    };
    const auto portrait = PortraitPath(dialog.name().toStdString());
    if (!dialog.portrait().isNull())
        write([&] {
            WritePortrait(dialog.portrait(), portrait);
            return QObject::tr("Portrait written to %1").arg(QString::fromStdString(portrait));
        });
    const auto journal = PagePath(dialog.name().toStdString(), ".jsonl");
    if (dialog.wantsJournal())
        write([&] {
            ReplaceFile(journal, journal::JournalText(tape));
            return QObject::tr("Journal written to %1").arg(QString::fromStdString(journal));
        });
    const auto printed = pdf::PdfNameOf(page);
    if (dialog.wantsPdf() && TargetNamed(dialog.templateName()) != nullptr)
        others.told << QObject::tr("No PDF file was written: it is made of a page.");
    else if (dialog.wantsPdf())
        write([&] {
            const auto manner = WritePdf(page, printed);
            others.printed = printed;
            return QObject::tr("PDF file written to %1, %2").arg(printed, manner);
        });
    return others;
}

void Exporter::TellExported(QWidget& dialog, const QString& message, const Others& others, const QString& page) const {
    QMessageBox box(others.failed ? QMessageBox::Warning : QMessageBox::Information, ToQt(session_.programTitle),
                    message, QMessageBox::Ok, &dialog);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(others.told.join(QLatin1Char('\n')));
    const auto* const open = box.addButton(QObject::tr("&Open"), QMessageBox::ActionRole);
    const auto* const open_printed =
        !others.printed.isEmpty() ? box.addButton(QObject::tr("Open &PDF"), QMessageBox::ActionRole) : nullptr;
    box.setDefaultButton(QMessageBox::Ok);
    box.setEscapeButton(QMessageBox::Ok);
    guard_.Run(box);
    const auto* const clicked = box.clickedButton();
    if (clicked != open && (clicked == nullptr || clicked != open_printed))
        return;
    const auto& file = clicked == open ? page : others.printed;
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file)))
        ui::ShowMessage(guard_, &dialog, ToQt(session_.programTitle),
                        QObject::tr("No program was found that opens %1").arg(file), Icon::Exclamation);
}

}  // namespace korvane
