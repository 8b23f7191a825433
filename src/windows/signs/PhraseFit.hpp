#pragma once

#include <string>

#include "windows/signs/LayoutPainter.hpp"

namespace karvel {

/// The part of a phrase that is shown where there is not enough width for all of it.
enum class Shown { Beginning, End };

/// `codes`, or as many of their first or last signs as fit into `width` with blocks `blockHeight` high, both
/// in logical pixels; at least one.
[[nodiscard]] std::string signsThatFit(const std::string& codes, Shown part, qreal width, qreal blockHeight,
                                       const PhraseLook& look, Desktop& desktop);

}  // namespace karvel
