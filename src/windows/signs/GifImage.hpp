#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace karvel {

/// A picture of at most 256 colours.
struct GifImage {
    std::size_t width = 0;  ///< in pixels
    std::size_t height = 0;
    std::vector<unsigned char> pixels;   ///< row after row, each the number of a colour
    std::vector<std::uint32_t> colours;  ///< 0xAARRGGBB; the transparent one is 0
};

/// Reads a GIF file of the form in which signs come: one palette and one picture of the full size. Nothing
/// for any other form and for a damaged file; the caller gives such a file to the toolkit. It is several
/// times faster than the toolkit's reader, which shows at the start. Any thread may call it.
[[nodiscard]] std::optional<GifImage> readGif(std::string_view file);

}  // namespace karvel
