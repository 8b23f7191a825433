#pragma once

#include <QPixmap>
#include <QString>

namespace karvel {

/// Makes what is compiled into the program available. To be called before the first use of ":/".
void initialiseResources();

/// The pictures of the opening window and of the about box.
[[nodiscard]] QPixmap openingPicture();
[[nodiscard]] QPixmap aboutPicture();

/// Where the data come from, and their licences, as Markdown.
[[nodiscard]] QString dataCredits();

}  // namespace karvel
