// Any bytes as the image of a sign: what is read of them is whole.

#include <algorithm>
#include <cstdint>

#include "Target.hpp"
#include "windows/signs/GifImage.hpp"

using namespace karvel;
using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto image = readGif({reinterpret_cast<const char*>(data), size});
    if (!image) {
        return 0;
    }
    require(image->width > 0 && image->height > 0, "a picture has an area");
    require(image->pixels.size() == image->width * image->height, "every pixel is there, and no more");
    require(image->colours.size() <= 256, "a pixel can name every colour");
    require(std::ranges::all_of(image->pixels, [&](unsigned char p) { return p < image->colours.size(); }),
            "every pixel has a colour of the palette");
    return 0;
}
