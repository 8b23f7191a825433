#pragma once

#include <string>

class QWidget;

namespace karvel {

class Desktop;

/// The dialogs of Lettura for files. Each gives a path in the system's form; empty when the user gives up.

/// Where to save a reading; the path ends with ".karvel-lettura", ".html", ".htm" or ".txt".
[[nodiscard]] std::string askWhereToSaveReading(QWidget& parent, Desktop& desktop);

/// Which reading or text to open.
[[nodiscard]] std::string askWhichReadingToOpen(QWidget& parent, Desktop& desktop);

}  // namespace karvel
