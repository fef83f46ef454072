#include "pdf/paper.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextFrame>
#include <vector>

namespace korvane::pdf {

namespace {

// In millimetres.
constexpr QMarginsF kMargins(15, 12, 15, 18);
constexpr double kFootHeight = 8;
constexpr double kFootSize = 7.5;  // of its letters, in points

constexpr double kMillimetresPerInch = 25.4;

QString TitleOf(const QTextDocument& document) {
    return document.metaInformation(QTextDocument::DocumentTitle).simplified();
}

// A block or a table, in the order of the document.
struct Element {
    QTextFrame* table = nullptr;
    QTextBlock block;

    bool isHeading() const { return table == nullptr && block.blockFormat().headingLevel() > 0; }
};

std::vector<Element> ElementsOf(const QTextDocument& document) {
    std::vector<Element> elements;
    const auto* const root = document.rootFrame();
    for (auto place = root->begin(); !place.atEnd(); ++place)
        elements.push_back({place.currentFrame(), place.currentBlock()});
    return elements;
}

QRectF RectOf(const QTextDocument& document, const Element& element) {
    const auto* const layout = document.documentLayout();
    return element.table != nullptr ? layout->frameBoundingRect(element.table)
                                    : layout->blockBoundingRect(element.block);
}

double EndOfFirstLine(const QTextDocument& document, const Element& element) {
    const auto first = element.table != nullptr ? element.table->firstCursorPosition().block() : element.block;
    const auto top = RectOf(document, element).top();
    const auto* const layout = first.layout();
    return top + (layout->lineCount() > 0 ? layout->lineAt(0).height() : 0);
}

// Where that ends which stands on the page that the element begins on: a heading goes with what follows it; a table of
// less than half a page is one, and the toolkit may draw the next line over the page's end; of other things the first
// line must have room.
double EndOfWhole(const QTextDocument& document, const std::vector<Element>& elements, std::size_t index) {
    while (index + 1 < elements.size() && elements[index].isHeading())
        ++index;
    const auto& element = elements[index];
    const auto rect = RectOf(document, element);
    if (element.table == nullptr || rect.height() > document.pageSize().height() / 2)
        return EndOfFirstLine(document, element);
    if (index + 1 == elements.size() || RectOf(document, elements[index + 1]).top() > rect.bottom())
        return rect.bottom();
    return EndOfFirstLine(document, elements[index + 1]);
}

void BeginPageBefore(const Element& element) {
    if (element.table != nullptr) {
        auto format = element.table->frameFormat();
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        element.table->setFrameFormat(format);
        return;
    }
    QTextBlockFormat format;
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(element.block).mergeBlockFormat(format);
}

void PaintFoot(QPainter& painter, const QRectF& foot, const QString& title, int number) {
    painter.save();
    painter.resetTransform();
    auto font = painter.font();
    font.setPointSizeF(kFootSize);
    painter.setFont(font);
    painter.setPen(Qt::darkGray);
    const auto number_text = QString::number(number);
    const QFontMetricsF metrics(font, painter.device());
    const auto room = foot.width() - 2 * metrics.horizontalAdvance(number_text);
    painter.drawText(foot, Qt::AlignLeft | Qt::AlignBottom, metrics.elidedText(title, Qt::ElideRight, room));
    painter.drawText(foot, Qt::AlignRight | Qt::AlignBottom, number_text);
    painter.restore();
}

void PaintPages(QPdfWriter& writer, const QTextDocument& document) {
    const auto size = document.pageSize();
    const auto foot_height = kFootHeight / kMillimetresPerInch * writer.resolution();
    const QRectF foot(0, size.height(), size.width(), foot_height);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    QPainter painter(&writer);
    for (int i = 0; i < document.pageCount(); ++i) {
        if (i > 0)
            writer.newPage();
        const QRectF view(0, i * size.height(), size.width(), size.height());
        painter.save();
        painter.setClipRect(QRectF({}, size));
        painter.translate(0, -view.top());
        context.clip = view;
        document.documentLayout()->draw(&painter, context);
        painter.restore();
        PaintFoot(painter, foot, TitleOf(document), i + 1);
    }
}

}  // namespace

QPageSize UsualPaper() {
    if (auto named = PaperNamed(qEnvironmentVariable("PAPERSIZE")); named.isValid())
        return named;
    const bool is_metric = QLocale::system().measurementSystem() != QLocale::ImperialUSSystem;
    return {is_metric ? QPageSize::A4 : QPageSize::Letter};
}

QPageSize PaperNamed(const QString& name) {
    if (name.isEmpty())
        return {};
    for (int id = 0; id <= QPageSize::LastPageSize; ++id)
        if (const auto each = static_cast<QPageSize::PageSizeId>(id);
            each != QPageSize::Custom && QPageSize::key(each).compare(name, Qt::CaseInsensitive) == 0)
            return {each};
    return {};
}

void KeepWholes(QTextDocument& document) {
    const auto height = document.pageSize().height();
    const auto page_of = [height](double y) { return static_cast<int>(y / height); };
    const auto elements = ElementsOf(document);
    document.pageCount();  // lays all out; else there are no lines to ask for
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const auto top = RectOf(document, elements[i]).top();
        if (page_of(top) == page_of(EndOfWhole(document, elements, i) - 1))
            continue;
        BeginPageBefore(elements[i]);
        document.pageCount();
        while (elements[i].isHeading() && i + 1 < elements.size())
            ++i;
    }
}

QByteArray PrintOn(const QPageSize& paper, QTextDocument& document) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&file);
        writer.setTitle(TitleOf(document));
        writer.setCreator("Korvane");
        writer.setPageLayout({paper, QPageLayout::Portrait, kMargins, QPageLayout::Millimeter});
        document.documentLayout()->setPaintDevice(&writer);
        document.setDocumentMargin(0);
        document.setPageSize(QSizeF(writer.width(), writer.height()));
        KeepWholes(document);
        PaintPages(writer, document);
        document.documentLayout()->setPaintDevice(nullptr);
    }
    return file.data();
}

}  // namespace korvane::pdf
