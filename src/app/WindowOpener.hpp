#pragma once

#include <string>

namespace karvel {

/// The windows that the core asks for; the window layer opens them without waiting.
class WindowOpener {
  public:
    virtual ~WindowOpener() = default;

    /// `italiano`, with a freshly built word list.
    virtual void openItalian() = 0;

    /// `imm1` with the image at `path`, in the system's form; an empty path says that the picture called
    /// `name` was not found.
    virtual void openPicture(const std::string& path, const std::string& name) = 0;

    /// Closes `imm1` if it is open.
    virtual void closePicture() {}

    /// Brings "Ingrandimento" to the front if it is open.
    virtual void raiseMagnifier() = 0;
};

}  // namespace karvel
