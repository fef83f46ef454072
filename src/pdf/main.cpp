#include <QGuiApplication>
#include <iostream>
#include <span>
#include <string>
#include <string_view>

#include "base/error.h"
#include "base/text.h"
#include "pdf/page_pdf.h"

namespace korvane::pdf {

namespace {

constexpr std::string_view kUsage = R"(usage: korvane-pdf [OPTION...] PAGE...
Makes a PDF file of each page, beside it: by a Chromium where there is one, so that it looks as the page's own styles
want it, else by the Qt toolkit in simple styles. Says which it was.

  --paper NAME  A4, Letter, A5 and others; what is usual here is the default
  --simple      By the toolkit in any case
  --help        This text
  --version     The program's version
)";

struct Order {
    QPageSize paper = UsualPaper();
    bool simple = false;
    std::span<char*> pages;
};

// Throws UsageError.
Order OrderOf(std::span<char*> words) {
    Order order;
    std::size_t i = 0;
    for (; i < words.size() && std::string_view(words[i]).starts_with("--"); ++i) {
        const std::string_view word = words[i];
        if (word == "--") {
            ++i;
            break;
        }
        if (word == "--simple") {
            order.simple = true;
        } else if (word == "--paper" && i + 1 < words.size()) {
            order.paper = PaperNamed(QString::fromLocal8Bit(words[++i]));
            if (!order.paper.isValid())
                throw UsageError(Concat("--paper: \"", words[i], "\" is no paper's name, as A4 or Letter are"));
        } else {
            throw UsageError(Concat(word, word == "--paper" ? ": a name is expected after it" : ": unknown option"));
        }
    }
    order.pages = words.subspan(i);
    if (order.pages.empty())
        throw UsageError("no page is named");
    return order;
}

// Tells how pages were made, when that isn't as of the one before.
void Tell(QString& told, const QString& manner) {
    if (std::exchange(told, manner) != manner)
        std::cout << "korvane-pdf: " << manner.toStdString() << '\n' << std::flush;
}

// Returns the exit status.
int MakeAll(const Order& order) {
    PdfMaker maker(order.paper, order.simple ? QString() : FindBrowser());
    QString told;
    int status = 0;
    for (const auto* const word : order.pages) {
        const auto page = QString::fromLocal8Bit(word);
        try {
            Tell(told, maker.Write(page, PdfNameOf(page)));
        } catch (const std::exception& error) {
            std::cerr << "korvane-pdf: " << error.what() << '\n';
            status = 1;
        }
    }
    return status;
}

}  // namespace

}  // namespace korvane::pdf

int main(int argc, char** argv) {
    using namespace korvane;
    const std::string_view first = argc < 2 ? "" : argv[1];
    if (first == "--help" || first == "--version") {
        if (first == "--help")
            std::cout << pdf::kUsage;
        else
            std::cout << "korvane-pdf " KORVANE_VERSION "\n";
        return 0;
    }
    // It shows nothing, so it needs no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The toolkit remarks on desktops that aren't there; what goes wrong is told.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
        if (type == QtCriticalMsg || type == QtFatalMsg)
            std::cerr << "korvane-pdf: " << message.toStdString() << '\n';
    });
    const QGuiApplication application(argc, argv);
    try {
        return pdf::MakeAll(pdf::OrderOf({argv + 1, static_cast<std::size_t>(argc - 1)}));
    } catch (const UsageError& error) {
        std::cerr << "korvane-pdf: " << error.what() << "\n" << pdf::kUsage;
        return 1;
    }
}
