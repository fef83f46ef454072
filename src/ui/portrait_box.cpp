#include "ui/portrait_box.h"

#include <QUrl>

namespace korvane::ui {

namespace {

QImage PictureIn(const QMimeData& given) {
    if (given.hasImage())
        return given.imageData().value<QImage>();
    for (const auto& url : given.urls())
        if (QImage picture(url.toLocalFile()); !picture.isNull())
            return picture;
    return {};
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
        setText(tr("Drop a portrait here"));
        return;
    }
    const auto size = contentsRect().size() * devicePixelRatioF();
    auto shown = QPixmap::fromImage(picture_.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    shown.setDevicePixelRatio(devicePixelRatioF());
    setPixmap(shown);
}

bool PortraitBox::Take(const QMimeData& given) {
    auto picture = PictureIn(given);
    if (picture.isNull())
        return false;
    picture_ = std::move(picture);
    Show();
    if (changed)
        changed();
    return true;
}

void PortraitBox::Clear() {
    picture_ = {};
    Show();
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
