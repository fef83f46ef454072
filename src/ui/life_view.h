// The life in one picture, above the history: the terms as blocks, what befell as marks, and what age bends.
#pragma once

#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <functional>
#include <vector>

#include "output/strip_svg.h"

namespace korvane::ui {

// A label, as its sentence is what a screen reader tells of it. A click on a mark or a term, or Return on the one that
// the arrow keys have reached, leads to its line.
class LifeView : public QLabel {
  public:
    LifeView();

    // Called with the place of a line in the history.
    std::function<void(int line)> chosen;

    // Shows a life; hidden where it has no terms yet.
    void Show(const LifeStrip& strip);
    const StripPicture& picture() const { return picture_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Draw();
    // The spot at a place; none: -1.
    int SpotAt(QPointF place) const;
    void StepTo(int spot);
    void Choose(int spot) const;

    LifeStrip strip_;
    StripPicture picture_;
    QImage drawn_;      // null until it is needed
    int current_ = -1;  // the spot that the keys have reached
};

}  // namespace korvane::ui
