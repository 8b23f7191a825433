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

/// Reads a GIF file of the form in which signs come: one palette and one picture, as large as the whole.
/// Nothing for any other form and for a file with a fault: what such a one looks like is not decided here. It
/// needs no toolkit, so that signs can be read before the toolkit stands, and any thread may call it.
[[nodiscard]] std::optional<GifImage> readGif(std::string_view file);

}  // namespace karvel
