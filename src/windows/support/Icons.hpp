#pragma once

#include <QColor>
#include <QIcon>

namespace karvel {

/// The symbols on the buttons of the main window.
enum class Symbol {
    Left,
    Right,
    Start,
    End,
    DeleteSign,
    ClearAll,
    Magnify,
    AddToDictionary,
    Search,
    List,
    Cross,
    Bin,
};

/// The icon of `symbol` in the colour `ink`, sharp at every size.
[[nodiscard]] QIcon symbolIcon(Symbol symbol, const QColor& ink);

}  // namespace karvel
