#pragma once

#include <QByteArray>
#include <QImage>
#include <string>

#include "windows/signs/LayoutPainter.hpp"
#include "writing/Svg.hpp"

class QIODevice;
class QWidget;

namespace karvel {

/// A phrase that is to become a picture: black signs on a transparent ground.
struct PhrasePicture {
    std::string codes;
    PhraseLook look{};
    int blockHeight = 64;  ///< pixels
};

/// Null when the picture would take more memory than a program may ask for.
[[nodiscard]] QImage imageOf(const PhrasePicture& picture, Desktop& desktop);

/// The text of an SVG file; with `shared`, of a picture on a page of HTML.
[[nodiscard]] QByteArray svgOf(const PhrasePicture& picture, Desktop& desktop,
                               SharedOutlines* shared = nullptr);

/// Writes a PDF file of one page, as large as the picture at 96 pixels to an inch. False when `device` takes
/// no more.
[[nodiscard]] bool writePdf(const PhrasePicture& picture, QIODevice& device, Desktop& desktop);

/// Puts the picture on the clipboard, as an image and as SVG. An empty phrase leaves the clipboard alone.
void copyPicture(const PhrasePicture& picture, Desktop& desktop);

/// Asks for a file, and for PNG also for the height, and writes the picture: PNG, SVG or PDF. A failure is
/// reported in a box; an existing file then stays as it was.
void savePicture(QWidget& parent, PhrasePicture picture, Desktop& desktop);

}  // namespace karvel
