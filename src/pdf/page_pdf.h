// A page as a PDF file, for tables that print.
#pragma once

#include <QString>

namespace korvane::pdf {

// Makes a PDF file of an HTML page: A4, with pictures from the page's folder. The file is replaced whole. Throws
// IoError for what is no page, and when it can't be read or the file can't be written. Needs a QGuiApplication.
void WritePdf(const QString& page, const QString& pdf);

// The name of a page's PDF file: the page's with another ending.
QString PdfNameOf(const QString& page);

}  // namespace korvane::pdf
