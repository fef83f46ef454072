#include "desktop/desktop_windows.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QUrl>
#include <iostream>

#include "settings/shipped_rules.h"
#include "ui/kvn_about.h"
#include "ui/message_boxes.h"
#include "ui/qt_text.h"

namespace korvane {

using ui::ToQt;

void DesktopWindows::ShowMessage(std::string_view text, Icon icon) {
    ui::ShowMessage(guard_, nullptr, ToQt(session_.programTitle), ToQt(text), icon);
}

std::optional<HeldPath> DesktopWindows::ChooseRaceFile(std::string_view proposedName) {
    const QDir shipped(QString::fromStdString(ShippedRules().string()));
    const bool is_among_rules = !QDir().entryList({"*.eri"}, QDir::Files).isEmpty();
    const auto start = is_among_rules || !shipped.exists() ? QDir::currentPath() : shipped.absolutePath();
    QFileDialog dialog(nullptr, ToQt(session_.programTitle), start, "Korvane Race files (*.eri)");
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setDefaultSuffix("eri");
    dialog.selectFile(ToQt(proposedName));
    if (shipped.exists())
        dialog.setSidebarUrls(dialog.sidebarUrls() << QUrl::fromLocalFile(shipped.absolutePath()));
    if (guard_.Run(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const auto file = dialog.selectedFiles().front();
    TellWhatIsLacking(QFileInfo(file).absoluteDir(), ToQt(proposedName));
    return HeldPath(file.toStdString());
}

void DesktopWindows::TellWhatIsLacking(const QDir& folder, const QString& race) {
    if (!folder.entryList({race}, QDir::Files).isEmpty())  // in any case
        return;
    const bool has_others = !folder.entryList({"*.eri"}, QDir::Files).isEmpty();
    ui::ShowMessage(
        guard_, nullptr, ToQt(session_.programTitle),
        QObject::tr("%1 has no file %2, by which Korvane knows its rules%3.")
            .arg(folder.absolutePath(), race,
                 has_others ? QObject::tr(", though it has other races") : QObject::tr(", and no other race")),
        Icon::Exclamation);
}

void DesktopWindows::EditFile(const HeldPath& path) {
    const auto file = NativePath(path).string();
    // Where the desktop finds no editor it may say nothing.
    std::cerr << "korvane: the configuration file is " << file << '\n';
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(file))))
        ui::ShowMessage(guard_, nullptr, ToQt(session_.programTitle), QString::fromStdString(file), Icon::None);
}

void DesktopWindows::ShowAbout() {
    ui::KVNAbout about(ToQt(session_.programTitle), nullptr);
    guard_.Run(about);
}

void DesktopWindows::ShowMainWindow() {
    mainWindow_.Load();
    mainWindow_.show();
    mainWindow_.Unlock();
}

}  // namespace korvane
