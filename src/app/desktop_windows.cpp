#include "app/desktop_windows.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QUrl>

#include "base/places.h"
#include "ui/kvn_about.h"
#include "ui/message_boxes.h"
#include "ui/qt_text.h"

namespace korvane {

using ui::ToQt;

void DesktopWindows::ShowMessage(std::string_view text, Icon icon) {
    ui::ShowMessage(nullptr, ToQt(session_.programTitle), ToQt(text), icon);
}

std::optional<std::string> DesktopWindows::ChooseRaceFile(std::string_view proposedName) {
    // The toolkit would keep the dialog's folders and its size; the program keeps nothing of the kind.
    const QTemporaryDir nowhere;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, nowhere.path());
    QFileDialog dialog(nullptr, ToQt(session_.programTitle), QDir::currentPath(), "Korvane Race files (*.eri)");
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setDefaultSuffix("eri");
    dialog.selectFile(ToQt(proposedName));
    if (ui::RunModal(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().front().toStdString();
}

void DesktopWindows::EditFile(std::string_view path) {
    const auto file = QString::fromStdString(NativePath(path).string());
#ifdef Q_OS_WIN
    QProcess editor;
    editor.setProgram("NOTEPAD.EXE");
    editor.setArguments({QDir::toNativeSeparators(file)});
    constexpr unsigned short kMinimizedWithoutFocus = 7;  // SW_SHOWMINNOACTIVE
    editor.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments* arguments) {
        arguments->startupInfo->dwFlags |= 1;  // STARTF_USESHOWWINDOW
        arguments->startupInfo->wShowWindow = kMinimizedWithoutFocus;
    });
    editor.startDetached();
#else
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file)))
        ui::ShowMessage(nullptr, ToQt(session_.programTitle), file, Icon::None);  // where the player finds it
#endif
}

void DesktopWindows::ShowAbout() {
    ui::KVNAbout about(ToQt(session_.programTitle), nullptr);
    ui::RunModal(about);
}

void DesktopWindows::ShowMainWindow() {
    mainWindow_.Load();
    mainWindow_.show();
    mainWindow_.ControlsLocked(false);
}

}  // namespace korvane
