#pragma once

#include <QPixmap>
#include <QString>

namespace karvel {

/// Registers the files that are compiled into the program. Call it before the first use of ":/".
void initialiseResources();

/// The pictures of the opening window and of the about box.
[[nodiscard]] QPixmap openingPicture();
[[nodiscard]] QPixmap aboutPicture();

/// Where the data come from, and their licences, as Markdown.
[[nodiscard]] QString dataCredits();

}  // namespace karvel
