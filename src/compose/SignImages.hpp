#pragma once

#include <string>
#include <string_view>

#include "files/FileSystem.hpp"

namespace karvel {

inline constexpr std::string_view kDefaultGlyphDirectory = "C:\\Programmi\\Karvel\\GR";
inline constexpr std::string_view kGlyphDirectoryPath = "C:\\Programmi\\Karvel\\settaggi\\conf2.cfg";

/// Where the images of the signs are read from.
class SignImages {
  public:
    /// Without a trailing backslash.
    [[nodiscard]] const std::string& GlyphDirectory() const { return directory_; }
    void setGlyphDirectory(std::string directory) { directory_ = std::move(directory); }

    /// The directory that start-up fell back on; the chooser starts from it.
    [[nodiscard]] const std::string& savedGlyphDirectory() const { return saved_; }

    /// Takes the directory from its settings file. Throws RuntimeError when that cannot be read.
    void restore(const FileSystem& files);

    /// The image of the sign `code`. The code is taken as it is, whatever its length.
    [[nodiscard]] std::string path(std::string_view code) const
    {
        return directory_ + "\\" + std::string(code) + ".gif";
    }

  private:
    std::string directory_{kDefaultGlyphDirectory};
    std::string saved_{kDefaultGlyphDirectory};
};

}  // namespace karvel
