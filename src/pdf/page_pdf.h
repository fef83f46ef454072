// A page as a PDF file, for tables that print.
#pragma once

#include <QImage>
#include <QString>
#include <QTextDocument>
#include <memory>

namespace korvane::pdf {

// A page as a document: its HTML, and the path that it has or would have, whose folder holds its pictures. A portrait
// that isn't null stands for the one of that name there.
std::unique_ptr<QTextDocument> MakeDocument(const QString& html, const QString& page, const QImage& portrait = {});

// Makes a PDF file of an HTML page: A4, with pictures from the page's folder. The file is replaced whole. Throws
// IoError for what is no page, and when it can't be read or the file can't be written. Needs a QGuiApplication.
void WritePdf(const QString& page, const QString& pdf);

// The name of a page's PDF file: the page's with another ending.
QString PdfNameOf(const QString& page);

}  // namespace korvane::pdf
