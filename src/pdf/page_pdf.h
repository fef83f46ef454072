// A page as a PDF file, for tables that print.
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QImage>
#include <QPageSize>
#include <QString>
#include <QTextDocument>
#include <functional>
#include <memory>
#include <optional>

#include "pdf/browser.h"
#include "pdf/paper.h"

namespace korvane::pdf {

// A page as a document: its HTML, and the path that it has or would have, whose folder holds its pictures. A portrait
// that isn't null stands for the one of that name there.
std::unique_ptr<QTextDocument> MakeDocument(const QString& html, const QString& page, const QImage& portrait = {});

// Makes PDF files of HTML pages: by a browser as the page's own styles tell, else by the toolkit as well as it can.
// Needs a QGuiApplication.
class PdfMaker {
    Q_DECLARE_TR_FUNCTIONS(PdfMaker)

  public:
    // `browser`: its path; empty for none.
    explicit PdfMaker(const QPageSize& paper = UsualPaper(), QString browser = FindBrowser());
    ~PdfMaker();
    PdfMaker(const PdfMaker&) = delete;
    PdfMaker& operator=(const PdfMaker&) = delete;

    // Does what takes a second or more; a window may do it in another thread, and wait.
    std::function<void(const std::function<void()>& work)> aside = [](const auto& work) { work(); };

    // Makes a PDF file of a page, with pictures from the page's folder. The file is replaced whole. Returns how it was
    // made, as "printed by /usr/bin/chromium". A browser that fails isn't tried again. Throws IoError for what is no
    // page, and when it can't be read or the file can't be written.
    QString Write(const QString& page, const QString& pdf);

  private:
    // Nothing without a browser that can.
    std::optional<QByteArray> ByBrowser(const QString& page);
    QByteArray ByToolkit(const QString& page) const;

    QPageSize paper_;
    QString program_;
    std::unique_ptr<Browser> browser_;  // started for the first page
    QString fault_;                     // why it is used no more
};

// The name of a page's PDF file: the page's with another ending.
QString PdfNameOf(const QString& page);

}  // namespace korvane::pdf
