// A place for a portrait: a picture that is dropped onto it, or pasted.
#pragma once

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QImage>
#include <QLabel>
#include <QMimeData>
#include <QPaintEvent>
#include <functional>

namespace korvane::ui {

class PortraitBox : public QLabel {
  public:
    PortraitBox();

    // Called with a new picture.
    std::function<void()> changed;

    // Takes a picture, or the file of one, from what was dropped or copied. Returns whether there was one.
    bool Take(const QMimeData& given);
    void Clear();
    // Says something in place of a picture, until there is one.
    void Say(const QString& text);
    const QImage& picture() const { return picture_; }

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void Show();

    QImage picture_;
};

}  // namespace korvane::ui
