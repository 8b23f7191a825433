#pragma once

#include <string>

namespace karvel {

/// Answers whether the image at a path can be shown. The window layer decodes and scales.
class Pictures {
  public:
    virtual ~Pictures() = default;

    /// `systemPath` is a path in the system's own form, UTF-8. Never throws: an image that is missing,
    /// unreadable or no image is simply not loadable.
    [[nodiscard]] virtual bool canLoad(const std::string& systemPath) = 0;
};

}  // namespace karvel
