#include <QGuiApplication>
#include <iostream>
#include <string_view>

#include "pdf/page_pdf.h"

int main(int argc, char** argv) {
    constexpr auto kUsage = "usage: korvane-pdf PAGE...\nMakes a PDF file of each page, beside it.\n";
    const std::string_view first = argc < 2 ? "" : argv[1];
    if (first == "--help" || first == "--version") {
        std::cout << (first == "--help" ? kUsage : "korvane-pdf " KORVANE_VERSION "\n");
        return 0;
    }
    if (argc < 2) {
        std::cerr << kUsage;
        return 1;
    }
    // It shows nothing, so it needs no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The toolkit remarks on desktops that aren't there; what goes wrong is told.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
        if (type == QtCriticalMsg || type == QtFatalMsg)
            std::cerr << "korvane-pdf: " << message.toStdString() << '\n';
    });
    const QGuiApplication application(argc, argv);
    int status = 0;
    for (int i = 1; i < argc; ++i) {
        const auto page = QString::fromLocal8Bit(argv[i]);
        try {
            korvane::pdf::WritePdf(page, korvane::pdf::PdfNameOf(page));
        } catch (const std::exception& error) {
            std::cerr << "korvane-pdf: " << error.what() << '\n';
            status = 1;
        }
    }
    return status;
}
