#include "pdf/simple_page.h"

#include <QRegularExpression>
#include <QStringList>
#include <vector>

#include "output/page_markup.h"

namespace korvane::pdf {

namespace {

QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Replaces each match by what `make` gives for it.
template <typename Make>
QString Replaced(const QString& text, const QRegularExpression& pattern, const Make& make) {
    QString result;
    qsizetype end = 0;
    for (auto matches = pattern.globalMatch(text); matches.hasNext();) {
        const auto match = matches.next();
        result += QStringView(text).mid(end, match.capturedStart() - end);
        result += make(match);
        end = match.capturedEnd();
    }
    result += QStringView(text).mid(end);
    return result;
}

// Fills the empty cells of the tables of a class.
QString WithFilledCells(const QString& html, const QString& classes, const QString& filling) {
    const QRegularExpression table(QStringLiteral("<table class=\"(?:%1)[ \"].*?</table>").arg(classes),
                                   QRegularExpression::DotMatchesEverythingOption);
    return Replaced(html, table, [&filling](const QRegularExpressionMatch& match) {
        // A cell for what is written by hand has a class of its own.
        static const QRegularExpression empty(R"((<td(?: class="(?!now)[^"]*")?>)\s*(?=</td>))");
        return match.captured().replace(empty, "\\1" + filling);
    });
}

// A row of two cells; the second may be empty.
QString RowOf(const QString& left, const QString& right) {
    return QStringLiteral(R"(<tr><td width="50%">%1</td><td width="50%">%2</td></tr>)").arg(left, right);
}

// The terms' texts, each under its heading; none where the lines hold other markup or no term.
std::vector<QString> TermsOf(const QString& history) {
    static const QRegularExpression mark("^-+ (Term \\d+) -+$");
    std::vector<QString> terms;
    for (const auto& line : history.split(QStringLiteral("<br>"))) {
        const auto text = line.trimmed();
        if (text.contains('<'))
            return {};
        if (const auto match = mark.match(text); match.hasMatch())
            terms.push_back(QStringLiteral("<b>%1</b>").arg(match.captured(1)));
        else if (!text.isEmpty() && terms.empty())
            return {};
        else if (!text.isEmpty())
            terms.back() += (terms.back().endsWith(QLatin1String("</b>")) ? "<br>" : " \u00b7 ") + text;
    }
    return terms;
}

// The terms of a history side by side, two in a row. Its last row is open in pages.
QString WithTermsInColumns(const QString& html) {
    const QRegularExpression history(QRegularExpression::escape(ToQt(kHistoryTable)) + "\\s*" +
                                         QRegularExpression::escape(ToQt(kHistoryRow)) + "(.*?)</table>",
                                     QRegularExpression::DotMatchesEverythingOption);
    return Replaced(html, history, [](const QRegularExpressionMatch& match) {
        const auto terms = TermsOf(match.captured(1));
        if (terms.empty())
            return match.captured();
        auto table = ToQt(kHistoryTable);
        for (std::size_t i = 0; i < terms.size(); i += 2)
            table += RowOf(terms[i], i + 1 < terms.size() ? terms[i + 1] : QString());
        return table + "</table>";
    });
}

}  // namespace

QString SimplePage(QString html) {
    html = WithFilledCells(html, "details|figures", QStringLiteral("\u2013"));
    html = WithFilledCells(html, "levels", "-3");
    return WithTermsInColumns(html);
}

}  // namespace korvane::pdf
