#pragma once

#include <QImage>
#include <string>

#include "files/Drives.hpp"

namespace karvel {

/// Reads the image at `systemPath`; null when it cannot be loaded. Any thread may call it once the
/// application object stands.
[[nodiscard]] QImage decodedImage(const Drives& drives, const std::string& systemPath);

/// The same for an image of the usual form, which needs no application object; null for any other.
[[nodiscard]] QImage usualImage(const Drives& drives, const std::string& systemPath);

}  // namespace karvel
