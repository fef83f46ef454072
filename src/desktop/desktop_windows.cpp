#include "desktop/desktop_windows.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QUrl>
#include <iostream>

#include "ui/kvn_about.h"
#include "ui/message_boxes.h"
#include "ui/qt_text.h"

namespace korvane {

using ui::ToQt;

void DesktopWindows::ShowMessage(std::string_view text, Icon icon) {
    ui::ShowMessage(guard_, nullptr, ToQt(session_.programTitle), ToQt(text), icon);
}

std::optional<HeldPath> DesktopWindows::ChooseRaceFile(std::string_view proposedName) {
    QFileDialog dialog(nullptr, ToQt(session_.programTitle), QDir::currentPath(), "Korvane Race files (*.eri)");
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setDefaultSuffix("eri");
    dialog.selectFile(ToQt(proposedName));
    if (guard_.Run(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return HeldPath(dialog.selectedFiles().front().toStdString());
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
