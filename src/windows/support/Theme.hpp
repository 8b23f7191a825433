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

/// Whether the windows of a palette are dark.
[[nodiscard]] bool isDark(const QPalette& palette);

/// A colour between `from` and `to`: 0 gives `from`, 1 gives `to`.
[[nodiscard]] QColor between(const QColor& from, const QColor& to, qreal share);

/// Sets a black and white palette for a high-contrast desktop theme, which the toolkit does not do itself.
void adoptContrastTheme();

/// True when the system asks for high contrast; then the program does not use its own colours.
[[nodiscard]] bool strongContrast();

/// The colour of a frame on `background`: `share` is 0 (invisible) to 1; with high contrast it is 1.
[[nodiscard]] QColor outlineOn(const QColor& background, qreal share);

/// The palette of a window with the background `window`; every text on it is readable. With high contrast it
/// is the system's own palette.
[[nodiscard]] QPalette paletteFor(const QColor& window);

/// The property of a menu that says how wide the icons of its items are, in logical pixels. Without it they
/// are small squares.
inline constexpr char kIconWidth[] = "iconWidth";

/// The style of the program on every system. The native styles do not take the colours that the user
/// chooses.
class Style : public QProxyStyle {
  public:
    Style();
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

/// The pen for the frame of the control that has the focus, on `background`.
[[nodiscard]] QPen focusPen(const QColor& background);

/// The colour of the focus and of the main action.
inline const QColor kAccent(0, 110, 120);
/// The colour of a selected sign.
inline const QColor kSelection(255, 140, 0);

}  // namespace karvel
