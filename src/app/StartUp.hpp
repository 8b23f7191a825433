#pragma once

#include "app/Session.hpp"

namespace karvel {

enum class StartUp {
    Ready,  ///< the main window may be shown
    Ended   ///< the user has been told why not; the program ends at once
};

/// Everything that must be in place before the first sign can be composed, in an order that is part of the
/// system: colours, installation check, search mode, sign directory, display, palette.
/// Throws RuntimeError when one of the four settings files cannot be read; the program ends then too.
[[nodiscard]] StartUp formLoad(Session& session);

}  // namespace karvel
