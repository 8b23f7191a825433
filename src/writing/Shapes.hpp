#pragma once

#include <optional>
#include <string_view>

namespace karvel {

/// The box of a sign's ink in thousandths of the font's em; a tall sign is about 1000 high.
struct SignShape {
    int width = 0;
    int height = 0;
};

/// The shape of the sign with this code; nothing for the missing sign and for codes that no sign has.
[[nodiscard]] std::optional<SignShape> shapeOf(std::string_view code);

}  // namespace karvel
