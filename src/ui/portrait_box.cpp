#include "ui/portrait_box.h"

#include <QBuffer>
#include <QImageReader>
#include <QUrl>
#include <utility>

#include "base/error.h"
#include "base/files.h"

namespace korvane::ui {

namespace {

// Upright, as the camera was held. Null for what is none, or too large to be one.
QImage PictureIn(const QString& file) {
    constexpr std::size_t kMost = std::size_t{64} << 20U;
    try {
        const auto bytes = ReadBytes(file.toStdString(), "a picture", kMost);
        auto content = QByteArray::fromStdString(bytes);
        QBuffer buffer(&content);
        QImageReader reader(&buffer);
        reader.setAutoTransform(true);
        return reader.read();
    } catch (const IoError&) {
        return {};
    }
}

QImage PictureIn(const QMimeData& given) {
    auto picture = given.imageData().value<QImage>();
    const auto urls = given.urls();
    for (auto url = urls.begin(); picture.isNull() && url != urls.end(); ++url)
        picture = PictureIn(url->toLocalFile());
    return picture;
}

}  // namespace

PortraitBox::PortraitBox() {
    setObjectName("portrait");
    setAccessibleName(tr("Portrait"));
    setAcceptDrops(true);
    setAlignment(Qt::AlignCenter);
    setFrameShape(QFrame::StyledPanel);
    setWordWrap(true);
    const int unit = fontMetrics().averageCharWidth();
    setFixedSize(unit * 18, unit * 22);
    Show();
}

void PortraitBox::Show() {
    if (picture_.isNull()) {
        Say(tr("Drop a portrait here"));
        return;
    }
    const auto size = contentsRect().size() * devicePixelRatioF();
    auto shown = QPixmap::fromImage(picture_.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    shown.setDevicePixelRatio(devicePixelRatioF());
    setPixmap(shown);
}

void PortraitBox::Say(const QString& text) {
    if (picture_.isNull())
        setText(text);
}

bool PortraitBox::Take(const QMimeData& given) {
    auto picture = PictureIn(given);
    if (picture.isNull()) {
        Say(tr("That is no picture"));
        return false;
    }
    picture_ = std::move(picture);
    Show();
    if (changed)
        changed();
    return true;
}

void PortraitBox::Clear() {
    picture_ = {};
    Show();
    if (changed)
        changed();
}

void PortraitBox::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasImage() || event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void PortraitBox::dropEvent(QDropEvent* event) {
    if (Take(*event->mimeData()))
        event->acceptProposedAction();
}

}  // namespace korvane::ui
