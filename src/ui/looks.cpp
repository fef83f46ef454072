#include "ui/looks.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QBuffer>
#include <QColor>
#include <QEvent>
#include <QImageReader>
#include <algorithm>
#include <utility>

namespace korvane::ui {

namespace {

// How light a colour is to the eye, from 0 to 1.
double Luminance(const QColor& color) {
    // As near to the told curve as this needs, without a mathematical library at the program's start.
    const auto linear = [](double part) { return part * (part * (part * 0.305306011 + 0.682171111) + 0.012522878); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor Mixed(const QColor& one, const QColor& other, double share) {
    const auto mix = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

}  // namespace

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QImage DrawingOf(const std::string& svg, QSize size, double pixelRatio) {
    auto bytes = QByteArray::fromStdString(svg);
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize(size * pixelRatio);
    auto drawing = reader.read();
    drawing.setDevicePixelRatio(pixelRatio);
    return drawing;
}

int WrapIn(int width, const QFontMetrics& metrics, const QString& text) {
    const auto words = text.split(QLatin1Char(' '));
    const bool fits =
        std::ranges::all_of(words, [&](const QString& word) { return metrics.horizontalAdvance(word) <= width; });
    return fits ? Qt::TextWordWrap : Qt::TextWrapAnywhere;
}

int RowWidth(const QStyleOptionViewItem& option) {
    const auto* const view = qobject_cast<const QAbstractItemView*>(option.widget);
    return view == nullptr ? option.rect.width() : view->viewport()->width();
}

double Contrast(const QColor& one, const QColor& other) {
    const double first = Luminance(one);
    const double second = Luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor Dimmed(const QPalette& palette, QPalette::ColorRole ground) {
    // More than the 4.5 that are needed, as a style shades the grounds of its controls.
    constexpr double kEnough = 7.0;
    constexpr double kStep = 0.05;
    const auto text = palette.color(QPalette::Active, QPalette::WindowText);
    const auto behind = palette.color(QPalette::Active, ground);
    auto dimmed = text;
    for (double share = kStep; share < 1; share += kStep) {
        const auto next = Mixed(text, behind, share);
        if (Contrast(next, behind) < kEnough)
            break;
        dimmed = next;
    }
    return dimmed;
}

void Recolour(QWidget& widget, std::function<void(QPalette& palette)> change) {
    // Belongs to the widget.
    class Recolouring : public QObject {
      public:
        Recolouring(QWidget& widget, std::function<void(QPalette& palette)> change)
            : QObject(&widget), widget_(widget), change_(std::move(change)) {
            widget_.installEventFilter(this);
            Apply();
        }

      protected:
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            if (event->type() == QEvent::ApplicationPaletteChange)
                Apply();
            return false;
        }

      private:
        void Apply() {
            auto palette = QApplication::palette(&widget_);
            change_(palette);
            widget_.setPalette(palette);
        }

        QWidget& widget_;
        std::function<void(QPalette& palette)> change_;
    };
    new Recolouring(widget, std::move(change));
}

void KeepReadable(QWidget& widget) {
    Recolour(widget, [](QPalette& palette) {
        palette.setColor(QPalette::Disabled, QPalette::Text, Dimmed(palette, QPalette::Base));
        palette.setColor(QPalette::Disabled, QPalette::ButtonText, Dimmed(palette, QPalette::Button));
        palette.setColor(QPalette::Disabled, QPalette::WindowText, Dimmed(palette));
        palette.setColor(QPalette::PlaceholderText, Dimmed(palette, QPalette::Button));
    });
}

void MendPalette() {
    if (!IsDark(QApplication::palette()))
        return;
    // Their outlines are taken from the ground, a little darker; a lighter inside is what can be seen.
    auto boxes = QApplication::palette();
    boxes.setColor(QPalette::Base, QColor(95, 95, 95));
    QApplication::setPalette(boxes, "QCheckBox");
    QApplication::setPalette(boxes, "QRadioButton");
}

}  // namespace korvane::ui
