#pragma once

#include <QColor>

class QString;
class QWidget;

namespace karvel {

/// Lets the user choose a colour, in the system's own dialog where it has one; not valid when the user
/// cancels.
[[nodiscard]] QColor chooseColour(const QColor& present, QWidget& parent, const QString& title);

}  // namespace karvel
