#pragma once

#include <QImage>
#include <string>

#include "files/Drives.hpp"

namespace karvel {

/// Reads the image at `systemPath`, in any form that the toolkit reads; null when it cannot be loaded. Any
/// thread may call it.
[[nodiscard]] QImage decodedImage(const Drives& drives, const std::string& systemPath);

}  // namespace karvel
