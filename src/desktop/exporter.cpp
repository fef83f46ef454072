#include "desktop/exporter.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QUrl>
#include <exception>
#include <filesystem>
#include <utility>

#include "base/files.h"
#include "character/seams_guard.h"
#include "engine/names.h"
#include "output/journal/lines.h"
#include "output/page_export.h"
#include "output/page_file.h"
#include "output/summary_texts.h"
#include "pdf/page_pdf.h"
#include "ui/back_button.h"
#include "ui/message_boxes.h"
#include "ui/qt_text.h"

namespace korvane {

using ui::ToQt;

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
    ui::KVNExport dialog(ToQt(session_.programTitle), templates, ToQt(OpenPointsLine(session_.character)), &window_);
    dialog.MayGoBack(mayGoBack);
    dialog.mayClose = [&] {
        return ui::AskYesNo(guard_, &dialog, ToQt(session_.programTitle),
                            {"The character has not been exported. Close all the same?", {}, Icon::Question, false}) ==
               QMessageBox::Yes;
    };
    dialog.rollName = [&] { Guard(dialog, [&] { RollName(dialog); }); };
    dialog.exportPage = [&] { Guard(dialog, [&] { Export(dialog, tape); }); };
    dialog.endProgram = [&] {
        if (working_)
            return;
        dialog.done(QDialog::Rejected);
        guard_.EndProgram(0);
    };
    return guard_.Run(dialog) == ui::kWentBack;
}

void Exporter::RollName(ui::KVNExport& dialog) {
    // A name is none of the life's: nothing of it goes onto the tape.
    const SeamsGuard guard(session_.seams);
    session_.seams.dice = &dice_;
    session_.seams.player = &player_;
    if (const auto name = korvane::RollName(session_))
        dialog.SetName(ToQt(*name));
}

void Exporter::Export(ui::KVNExport& dialog, const journal::Tape& tape) {
    const auto title = ToQt(session_.programTitle);
    const auto form = session_.data.location() + dialog.templateName().toStdString();
    const auto outcome = ExportCharacter(session_, form, dialog.name().toStdString());
    if (outcome.path.empty()) {
        ui::ShowMessage(guard_, &dialog, title, ToQt(outcome.message), Icon::None);
        return;
    }
    const auto page = QString::fromStdString(outcome.path);
    dialog.NoteExported();
    TellExported(dialog, ToQt(outcome.message), page);
    if (dialog.wantsJournal()) {
        const auto written = std::filesystem::path(outcome.path).replace_extension(".jsonl");
        ReplaceFile(written, journal::JournalText(tape));
        ui::ShowMessage(guard_, &dialog, title,
                        QObject::tr("Journal written to %1").arg(QString::fromStdString(written.string())), Icon::None);
    }
    if (!dialog.wantsPdf())
        return;
    const auto printed = pdf::PdfNameOf(page);
    pdf::WritePdf(page, printed);
    TellExported(dialog, QObject::tr("PDF file written to %1").arg(printed), printed);
}

void Exporter::TellExported(QWidget& dialog, const QString& message, const QString& page) const {
    QMessageBox box(QMessageBox::Information, ToQt(session_.programTitle), message, QMessageBox::Ok, &dialog);
    box.setTextFormat(Qt::PlainText);
    const auto* const open = box.addButton(QObject::tr("&Open"), QMessageBox::ActionRole);
    box.setDefaultButton(QMessageBox::Ok);
    box.setEscapeButton(QMessageBox::Ok);
    guard_.Run(box);
    if (box.clickedButton() == open && !QDesktopServices::openUrl(QUrl::fromLocalFile(page)))
        ui::ShowMessage(guard_, &dialog, ToQt(session_.programTitle),
                        QObject::tr("No program was found that opens %1").arg(page), Icon::Exclamation);
}

}  // namespace korvane
