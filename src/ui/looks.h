// How the program looks where the toolkit's defaults don't read well.
#pragma once

#include <QColor>
#include <QFontMetrics>
#include <QImage>
#include <QPalette>
#include <QString>
#include <QStyleOptionViewItem>
#include <QWidget>
#include <functional>
#include <string>

namespace korvane::ui {

// How well two colours stand out from each other: 1 for equal ones, 21 for black on white.
double Contrast(const QColor& one, const QColor& other);
// The colour of texts that stand back, at 4.5 to 1 at least on their ground.
QColor Dimmed(const QPalette& palette, QPalette::ColorRole ground = QPalette::Window);
// Gives a widget colours of its own, made of those of the program; anew when those change.
void Recolour(QWidget& widget, std::function<void(QPalette& palette)> change);
// Keeps what a widget says readable while it is disabled: at 4.5 to 1 at least.
void KeepReadable(QWidget& widget);

// Whether texts are light on a dark ground.
bool IsDark(const QPalette& palette);

// A drawing in SVG as a picture of this size, in the widgets' pixels; empty where the toolkit can't draw it.
QImage DrawingOf(const std::string& svg, QSize size, double pixelRatio);

// How a text wraps in a row of a list: between words, or anywhere where one of them has no room.
int WrapIn(int width, const QFontMetrics& metrics, const QString& text);
// How wide the rows of a list are that its delegate paints.
int RowWidth(const QStyleOptionViewItem& option);

// Makes tick boxes and radio buttons stand out on a dark ground.
void MendPalette();

}  // namespace korvane::ui
