// A browser without windows, which prints pages as their own styles want them.
#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QJsonObject>
#include <QPageSize>
#include <QString>
#include <QTemporaryDir>
#include <stdexcept>
#include <sys/types.h>

#include "base/descriptor.h"

namespace korvane::pdf {

// A browser that can't be started, or didn't do what it was asked for.
class BrowserError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The path of the browser that prints: what KORVANE_BROWSER names ("none" for none of all), else the first Chromium on
// the PATH. Empty where there is none.
QString FindBrowser();

// A Chromium, which is told what to do in its own protocol, by a wire. It lives as long as this, and knows nothing of
// the user's own: its profile is a new folder, which goes with it.
class Browser {
  public:
    // Throws BrowserError.
    explicit Browser(const QString& program);
    ~Browser();
    Browser(const Browser&) = delete;
    Browser& operator=(const Browser&) = delete;

    // The bytes of the PDF file of a page, on this paper unless the page's styles name another. Throws BrowserError,
    // after which only another browser can help.
    QByteArray Print(const QString& page, const QPageSize& paper);

  private:
    void Start(const QString& program, int wire);
    // Opens the page that pages are loaded into.
    void Open();
    // A method of the protocol, and what it gives.
    QJsonObject Call(const QString& method, const QJsonObject& parameters);
    // The next message of the browser's.
    QJsonObject Next();
    void Send(const QByteArray& bytes) const;
    // Waits for more from the browser, and takes it.
    void Read();
    void End();

    QTemporaryDir profile_;
    Descriptor wire_{-1};
    pid_t process_ = 0;
    QDeadlineTimer patience_;
    QByteArray received_;
    QString session_;  // with the one page that it has open
    int calls_ = 0;
    bool loaded_ = false;
};

}  // namespace korvane::pdf
