#pragma once

#include <QColor>
#include <QPalette>
#include <QPen>
#include <QProxyStyle>

#include "settings/Colours.hpp"

namespace karvel {

[[nodiscard]] inline QColor colour(Colour of)
{
    return {of.red(), of.green(), of.blue()};
}

/// Black or white, whichever reads better on `background`.
[[nodiscard]] QColor inkOn(const QColor& background);

/// A colour between `from` and `to`: 0 gives `from`, 1 gives `to`.
[[nodiscard]] QColor between(const QColor& from, const QColor& to, qreal share);

/// Takes black and white from a desktop theme of strong contrast that the toolkit knows by name only.
void adoptContrastTheme();

/// True when the system shows everything in strong contrast: that goes before the colours of the program.
[[nodiscard]] bool strongContrast();

/// The colour of a frame on `background`: faint (0) to full (1), and full where the system wants contrast.
[[nodiscard]] QColor outlineOn(const QColor& background, qreal share);

/// The palette of a window whose surface is `window`: every text on it stays readable. Where the system wants
/// strong contrast it is the system's own.
[[nodiscard]] QPalette paletteFor(const QColor& window);

/// The one look of the program on every system; the native ones would not take the colours that the user
/// chooses.
class Style : public QProxyStyle {
  public:
    Style();
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

/// Draws the frame of the control with the focus, on `background`.
[[nodiscard]] QPen focusPen(const QColor& background);

/// What marks the focus and the main action.
inline const QColor kAccent(0, 110, 120);
/// What marks a sign selected for deletion.
inline const QColor kSelection(255, 140, 0);

}  // namespace karvel
