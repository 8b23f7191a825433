#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "writing/Placement.hpp"
#include "writing/SignDrawings.hpp"

namespace karvel {

/// Room around the writing in a picture, in the unit of the placement.
inline constexpr double kPictureMargin = 60;

struct Svg {
    std::string text;  ///< UTF-8
    std::vector<std::string>
        asImages;  ///< codes of signs that have no outline and stand in it as images, each once
};

/// The outlines that the pictures of one page share, each once.
struct SharedOutlines {
    std::set<std::string, std::less<>> codes;
    std::string symbols;  ///< elements for a picture that stands on the same page, at any place
};

/// A picture of `placement` in SVG: black outlines on a transparent ground, no font, blocks `blockPixels`
/// high. `title` is UTF-8 and says what is written. A sign without outline and image is a dashed box with its
/// code. With `shared` the picture only refers to its outlines, and adds to `shared` those that it lacks.
[[nodiscard]] Svg svgOf(const Placement& placement, double blockPixels, std::string_view title,
                        SignDrawings& drawings, SharedOutlines* shared = nullptr);

}  // namespace karvel
