#include "windows/Theme.hpp"

namespace karvel {

QColor inkOn(const QColor& background)
{
    return Colour::rgb(background.red(), background.green(), background.blue()).wantsDarkText()
               ? QColor(0, 0, 0)
               : QColor(255, 255, 255);
}

QColor between(const QColor& from, const QColor& to, qreal share)
{
    const auto mix = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

Style::Style() : QProxyStyle(QStringLiteral("Fusion")) {}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* returned) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) {
        return 0;
    }
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    constexpr int kMessageIcon = 40;  // logical pixels
    return metric == PM_MessageBoxIconSize ? kMessageIcon : QProxyStyle::pixelMetric(metric, option, widget);
}

QPalette paletteFor(const QColor& window)
{
    const QColor ink = inkOn(window);
    const bool dark = ink == QColor(255, 255, 255);
    const QColor button = between(window, QColor(255, 255, 255), dark ? 0.14 : 0.45);
    const QColor base =
        dark ? between(window, QColor(0, 0, 0), 0.35) : between(window, QColor(255, 255, 255), 0.85);
    QPalette palette(button, window);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const qreal strength = group == QPalette::Disabled ? 0.5 : 1.0;
        palette.setColor(group, QPalette::Window, window);
        palette.setColor(group, QPalette::WindowText, between(window, ink, strength));
        palette.setColor(group, QPalette::Button, button);
        palette.setColor(group, QPalette::ButtonText, between(button, inkOn(button), strength));
        palette.setColor(group, QPalette::Base, base);
        palette.setColor(group, QPalette::Text, between(base, inkOn(base), strength));
        palette.setColor(group, QPalette::PlaceholderText, between(base, inkOn(base), 0.55));
        palette.setColor(group, QPalette::Highlight, kAccent);
        palette.setColor(group, QPalette::HighlightedText, QColor(255, 255, 255));
        palette.setColor(group, QPalette::ToolTipBase, QColor(255, 255, 240));
        palette.setColor(group, QPalette::ToolTipText, QColor(0, 0, 0));
    }
    return palette;
}

}  // namespace karvel
