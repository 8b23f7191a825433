#include "windows/support/Theme.hpp"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <optional>

#include "base/WindowsHeader.hpp"

namespace karvel {

namespace {

// Sizes of the wide icons in a menu, in logical pixels.
constexpr int kIconMargin = 6;
constexpr int kIconHeight = 28;

constexpr int kMenuArrow = 16;  // space for the arrow of a button with a menu, half of it on each side

#ifdef Q_OS_WIN
bool systemAsksForContrast()
{
    HIGHCONTRASTW setting = {};
    setting.cbSize = sizeof setting;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof setting, &setting, 0) != 0 &&
           (setting.dwFlags & HCF_HIGHCONTRASTON) != 0;
}
#else
bool systemAsksForContrast()
{
    return false;  // the palette alone decides
}
#endif

bool isBlackAndWhite(const QPalette& palette)
{
    const QColor surface = palette.color(QPalette::Window);
    const QColor ink = palette.color(QPalette::WindowText);
    const auto isPlain = [](const QColor& colour) { return colour == Qt::black || colour == Qt::white; };
    return isPlain(surface) && isPlain(ink) && surface != ink;
}

void frame(QPainter& painter, const QStyleOption& option)
{
    constexpr qreal kGrey = 0.4;
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(between(option.palette.color(QPalette::Window), option.palette.color(QPalette::WindowText),
                           strongContrast() ? 1.0 : kGrey));
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

/// The item of a menu that has wide icons, without its icon but with the space for it; nothing for any other.
std::optional<QStyleOptionMenuItem> withSpaceForIcon(const QStyleOption* option, const QWidget* widget)
{
    const int width = widget == nullptr ? 0 : widget->property(kIconWidth).toInt();
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (item == nullptr || width == 0) {
        return std::nullopt;
    }
    QStyleOptionMenuItem wide = *item;
    wide.icon = {};
    wide.maxIconWidth = width + 2 * kIconMargin;
    return wide;
}

}  // namespace

void adoptContrastTheme()
{
    const QByteArray theme = qgetenv("GTK_THEME");
    if (!theme.startsWith("HighContrast")) {
        return;
    }
    const bool inverse = theme.contains("Inverse") || theme.endsWith(":dark");
    const QColor paper = inverse ? Qt::black : Qt::white;
    const QColor ink = inverse ? Qt::white : Qt::black;
    const QColor faint = between(paper, ink, 0.7);
    QPalette palette(ink, paper, ink, ink, faint, ink, ink, paper, paper);
    palette.setColor(QPalette::Highlight, ink);
    palette.setColor(QPalette::HighlightedText, paper);
    palette.setColor(QPalette::Link, ink);
    palette.setColor(QPalette::ToolTipBase, paper);
    palette.setColor(QPalette::ToolTipText, ink);
    palette.setColor(QPalette::Button, paper);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
        palette.setColor(QPalette::Disabled, role, faint);
    }
    QApplication::setPalette(palette);
}

bool strongContrast()
{
    struct Answer {
        qint64 palette;
        bool strong;
    };
    // Cached, because each paint event asks. A new theme comes with a new palette.
    static std::optional<Answer> last;
    const QPalette system = QApplication::palette();
    if (!last || last->palette != system.cacheKey()) {
        last = {system.cacheKey(), systemAsksForContrast() || isBlackAndWhite(system)};
    }
    return last->strong;
}

QColor outlineOn(const QColor& background, qreal share)
{
    return between(background, inkOn(background), strongContrast() ? 1.0 : share);
}

QColor inkOn(const QColor& background)
{
    return Colour::rgb(background.red(), background.green(), background.blue()).wantsDarkText()
               ? QColor(0, 0, 0)
               : QColor(255, 255, 255);
}

bool isDark(const QPalette& palette)
{
    return inkOn(palette.color(QPalette::Window)) == Qt::white;
}

QColor between(const QColor& from, const QColor& to, qreal share)
{
    const auto mix = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

QPen focusPen(const QColor& background)
{
    if (!strongContrast()) {
        return {kAccent, 2};
    }
    return {inkOn(background) == Qt::white ? QColor(Qt::yellow) : kAccent, 4};
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

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                              const QWidget* widget) const
{
    if (type == CT_MenuItem) {
        if (const auto wide = withSpaceForIcon(option, widget)) {
            const QSize size = QProxyStyle::sizeFromContents(type, &*wide, contents, widget);
            const auto& item = static_cast<const QStyleOptionMenuItem&>(*option);
            return item.icon.isNull() ? size : size.expandedTo({0, kIconHeight + kIconMargin});
        }
    }
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    const auto* const button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
    const bool hasMenu = button != nullptr && button->features.testFlag(QStyleOptionToolButton::HasMenu);
    return type == CT_ToolButton && hasMenu ? size + QSize(kMenuArrow, 0) : size;
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const
{
    if (element == CE_MenuItem) {
        if (const auto wide = withSpaceForIcon(option, widget)) {
            QProxyStyle::drawControl(element, &*wide, painter, widget);
            const auto& item = static_cast<const QStyleOptionMenuItem&>(*option);
            const int height = std::min(kIconHeight, item.rect.height());
            const QRect place(item.rect.left() + kIconMargin, item.rect.center().y() - height / 2,
                              wide->maxIconWidth - 2 * kIconMargin, height);
            const bool chosen = item.state.testFlag(State_Selected);
            item.icon.paint(painter, place, Qt::AlignCenter, chosen ? QIcon::Selected : QIcon::Normal);
            return;
        }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

/// The base style's frames are darker than the surface: on a dark surface they are invisible.
void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    switch (element) {
        case PE_PanelButtonCommand:
        case PE_PanelButtonTool:
            if (strongContrast()) {
                frame(*painter, *option);
            }
            break;
        case PE_FrameLineEdit:
        case PE_Frame:
        case PE_FrameGroupBox:
        case PE_IndicatorCheckBox:
        case PE_FrameMenu:
        case PE_PanelMenu:
            // The base style's frame of the field that has the focus is coloured.
            if (strongContrast() || (isDark(option->palette) && !option->state.testFlag(State_HasFocus))) {
                frame(*painter, *option);
            }
            break;
        default:
            break;
    }
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && bar != nullptr && strongContrast()) {
        frame(*painter, *option);
        painter->fillRect(
            proxy()->subControlRect(CC_ScrollBar, bar, SC_ScrollBarSlider, widget).adjusted(3, 3, -3, -3),
            option->palette.windowText());
    }
}

QPalette paletteFor(const QColor& window)
{
    constexpr qreal kPlaceholder = 0.7;
    if (strongContrast()) {
        QPalette system = QApplication::palette();
        system.setColor(QPalette::PlaceholderText,
                        between(system.color(QPalette::Base), system.color(QPalette::Text), kPlaceholder));
        return system;
    }
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
        palette.setColor(group, QPalette::PlaceholderText, between(base, inkOn(base), kPlaceholder));
        palette.setColor(group, QPalette::Link,
                         dark ? between(kAccent, QColor(255, 255, 255), 0.6) : kAccent);
        palette.setColor(group, QPalette::Highlight, kAccent);
        palette.setColor(group, QPalette::HighlightedText, QColor(255, 255, 255));
        palette.setColor(group, QPalette::ToolTipBase, QColor(255, 255, 240));
        palette.setColor(group, QPalette::ToolTipText, QColor(0, 0, 0));
    }
    return palette;
}

}  // namespace karvel
