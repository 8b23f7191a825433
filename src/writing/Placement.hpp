#pragma once

#include <string>
#include <vector>

#include "writing/Layout.hpp"

namespace karvel {

/// Lengths are in the unit of the sign shapes, thousandths of the font's em. A block is so many high, and a
/// painter that wants it so many pixels high multiplies all lengths by their ratio. x goes right, y down.
inline constexpr double kBlockHeight = 1100;

/// The distance between one line (or column) of blocks and the next.
inline constexpr double kBetweenLines = 320;

struct Box {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

struct PlacedSign {
    std::string code;
    Box box;            ///< of the ink; where the sign's own picture is drawn it is fitted into this box
    bool drawn = true;  ///< false: no sign has the code, a dashed box with the code takes its place
    bool mirrored = false;
};

/// A cartouche: a rounded frame and, where the name ends, the bar of the knot.
struct PlacedRing {
    Box frame;             ///< the middle of the line
    double radius = 0;     ///< of its corners, at the middle of the line
    double thickness = 0;  ///< of the line
    Box bar;               ///< filled
};

struct PlacementOptions {
    bool rightToLeft = false;  ///< signs look to the right, and lines begin there
    bool columns = false;      ///< blocks stand below each other
    double length = 0;         ///< a line or column is broken before the block that would pass it; 0: never
};

/// A layout ready to be painted.
struct Placement {
    double width = 0;
    double height = 0;
    std::vector<PlacedSign> signs;  ///< in the order in which they are read
    std::vector<PlacedRing> rings;
};

/// Gives every sign of `layout` its place. Signs keep their relative sizes within a block; a block that is
/// too high is reduced as a whole. An empty layout is a placement without size.
[[nodiscard]] Placement place(const Layout& layout, const PlacementOptions& options = {});

}  // namespace karvel
