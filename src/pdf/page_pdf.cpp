#include "pdf/page_pdf.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QList>
#include <QTextDocument>
#include <QUrl>
#include <utility>

#include "base/encoding.h"
#include "base/error.h"
#include "base/files.h"
#include "output/page_markup.h"
#include "pdf/paper.h"
#include "pdf/simple_page.h"

namespace korvane::pdf {

namespace {

// A page, in bytes.
constexpr std::size_t kMostPage = std::size_t{64} << 20U;

// The room for a portrait on a page, in the page's own pixels.
constexpr QSize kLargestPicture(200, 260);

QImage Nothing() {
    QImage nothing(1, 1, QImage::Format_ARGB32);
    nothing.fill(Qt::transparent);
    return nothing;
}

QImage PictureIn(const QString& file) {
    constexpr std::size_t kMostPicture = std::size_t{64} << 20U;
    try {
        const auto bytes = ReadBytes(file.toStdString(), "a picture", kMostPicture);
        return QImage::fromData(QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())));
    } catch (const IoError&) {
        return {};  // a page may name a picture that nobody has put there yet
    }
}

// How wide a drawing on the page is, in the page's own pixels, and how many of the picture's go into one of them.
constexpr int kDrawingWidth = 600;
constexpr int kDrawingScale = 3;

// A drawing that the page holds as SVG; null without the toolkit's plugin for such.
QImage DrawingOf(const QByteArray& svg) {
    auto bytes = svg;
    QBuffer file(&bytes);
    QImageReader reader(&file, "svg");
    const auto size = reader.size();
    if (size.isEmpty())
        return {};
    reader.setScaledSize(
        size.scaled(kDrawingScale * kDrawingWidth, kDrawingScale * kDrawingWidth, Qt::KeepAspectRatio));
    reader.setBackgroundColor(Qt::white);  // its texts are black
    return reader.read();
}

// A document that takes its pictures from the page's folder, no larger than a portrait, and the page's drawings from
// the page.
class PageDocument : public QTextDocument {
  public:
    PageDocument(const QString& page, QImage portrait) : portrait_(std::move(portrait)) {
        setBaseUrl(QUrl::fromLocalFile(QFileInfo(page).absoluteFilePath()));
    }

    // Puts a picture in the place of each drawing, whose texts would be taken for the page's otherwise.
    QString WithPictures(QString html) {
        const QLatin1String beginning("<svg ");
        const QLatin1String ending("</svg>");
        for (auto begin = html.indexOf(beginning); begin >= 0; begin = html.indexOf(beginning, begin)) {
            const auto end = html.indexOf(ending, begin);
            if (end < 0)
                break;
            const auto size = end + ending.size() - begin;
            const auto drawing = DrawingOf(html.mid(begin, size).toUtf8());
            html.replace(begin, size, drawing.isNull() ? QString() : ImageOf(drawings_.size()));
            if (!drawing.isNull())
                drawings_.push_back(drawing);
        }
        return html;
    }

  protected:
    QVariant loadResource(int type, const QUrl& name) override {
        if (type != ImageResource)
            return {};
        if (name.scheme() == kScheme)
            return drawings_.value(name.path().toInt());
        const auto file = baseUrl().resolved(name).toLocalFile();
        const QFileInfo page(baseUrl().toLocalFile());
        const bool is_portrait = file == page.path() + "/" + page.completeBaseName() + ".jpg";
        const auto picture = is_portrait && !portrait_.isNull() ? portrait_ : PictureIn(file);
        if (picture.isNull())
            return Nothing();  // or the toolkit draws a picture of its own
        if (picture.width() <= kLargestPicture.width() && picture.height() <= kLargestPicture.height())
            return picture;
        return picture.scaled(kLargestPicture, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }

  private:
    static constexpr QLatin1String kScheme{"drawing"};

    static QString ImageOf(qsizetype place) {
        return QStringLiteral("<img src=\"%1:%2\" width=\"%3\">").arg(kScheme).arg(place).arg(kDrawingWidth);
    }

    QImage portrait_;
    QList<QImage> drawings_;
};

// The history's table may begin with lines that stand in no row; the document drops what no cell holds.
QString WithRows(QString html) {
    const auto table = QString::fromUtf8(kHistoryTable.data(), kHistoryTable.size());
    const auto row = QString::fromUtf8(kHistoryRow.data(), kHistoryRow.size());
    for (auto place = html.indexOf(table); place >= 0; place = html.indexOf(table, place + 1)) {
        const auto content = place + table.size();
        const auto rest = QStringView(html).mid(content).trimmed();
        if (!rest.startsWith(QLatin1String("<tr")) && !rest.startsWith(QLatin1String("</table")))
            html.insert(content, row);
    }
    return html;
}

// Only a page is read, and it isn't what is written: anything else is a slip that would cost a file.
void CheckIsPage(const QString& page, const QString& pdf) {
    const auto ending = QFileInfo(page).suffix().toLower();
    if (ending != QLatin1String("htm") && ending != QLatin1String("html"))
        throw IoError(page.toStdString(), "can't be made into a PDF file", "it is no page (.htm or .html)");
    const auto itself = QFileInfo(page).canonicalFilePath();
    if (!itself.isEmpty() && itself == QFileInfo(pdf).canonicalFilePath())
        throw IoError(page.toStdString(), "can't be made into a PDF file", "it would be replaced by it");
}

}  // namespace

std::unique_ptr<QTextDocument> MakeDocument(const QString& html, const QString& page, const QImage& portrait) {
    auto document = std::make_unique<PageDocument>(page, portrait);
    document->setHtml(WithRows(SimplePage(document->WithPictures(html))));
    return document;
}

PdfMaker::PdfMaker(const QPageSize& paper, QString browser) : paper_(paper), program_(std::move(browser)) {}

PdfMaker::~PdfMaker() = default;

std::optional<QByteArray> PdfMaker::ByBrowser(const QString& page) {
    if (program_.isEmpty())
        return std::nullopt;
    try {
        if (browser_ == nullptr)
            browser_ = std::make_unique<Browser>(program_);
        return browser_->Print(page, paper_);
    } catch (const BrowserError& error) {
        fault_ = program_ + ": " + QString::fromUtf8(error.what());
        program_.clear();
        browser_.reset();
        return std::nullopt;
    }
}

QByteArray PdfMaker::ByToolkit(const QString& page) const {
    const auto html = DecodeText(ReadBytes(page.toStdString(), "a page", kMostPage));
    return PrintOn(paper_, *MakeDocument(QString::fromStdString(html), page));
}

QString PdfMaker::Write(const QString& page, const QString& pdf) {
    CheckIsPage(page, pdf);
    std::optional<QByteArray> bytes;
    aside([&] { bytes = ByBrowser(page); });
    auto manner = bytes              ? tr("printed by %1").arg(program_)
                  : fault_.isEmpty() ? tr("printed by the toolkit in simple styles: there is no Chromium")
                                     : tr("printed by the toolkit in simple styles: %1").arg(fault_);
    if (!bytes)
        bytes = ByToolkit(page);
    ReplaceFile(pdf.toStdString(), {bytes->constData(), static_cast<std::size_t>(bytes->size())});
    return manner;
}

QString PdfNameOf(const QString& page) {
    const QFileInfo info(page);
    return info.path() + "/" + info.completeBaseName() + ".pdf";
}

}  // namespace korvane::pdf
