#pragma once

#include <QColor>
#include <QPalette>

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

/// The palette of a window whose surface is `window`: every text on it stays readable.
[[nodiscard]] QPalette paletteFor(const QColor& window);

/// What marks the focus and the main action.
inline const QColor kAccent(0, 110, 120);
/// What marks a sign selected for deletion.
inline const QColor kSelection(255, 140, 0);

}  // namespace karvel
