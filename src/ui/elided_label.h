// One line of text that gives way: where there is no room it ends in "…", and the whole of it is its tool tip.
#pragma once

#include <QFontMetrics>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>

namespace korvane::ui {

class ElidedLabel : public QLabel {
  public:
    ElidedLabel() {
        setTextFormat(Qt::PlainText);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }
    void Say(const QString& said) {
        setText(said);
        setToolTip(said.toHtmlEscaped());
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const auto shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
        style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown,
                              foregroundRole());
    }
};

}  // namespace korvane::ui
