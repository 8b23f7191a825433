#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "writing/Outlines.hpp"
#include "writing/Placement.hpp"

namespace karvel {

/// What there is to draw a sign with: its outline or else its image; neither when both are missing.
struct SignDrawing {
    std::optional<std::vector<OutlineStep>> outline;
    std::string image;      ///< the bytes of a GIF file
    bool ownImage = false;  ///< of another directory than the installed one
};

/// Chooses between outlines and images. A sign is drawn from its outline, unless the user has another
/// directory of images and its image there differs from the installed one. Files are read when they are first
/// needed.
class SignDrawings {
  public:
    /// `files` must outlive the drawings; `directory` is that of the user's images, without a backslash at
    /// the end.
    SignDrawings(const FileSystem& files, std::string directory);

    /// The drawing of the sign with this code; valid as long as the drawings.
    [[nodiscard]] const SignDrawing& of(std::string_view code);

    /// Where an image is to be drawn so that the sign in it fills `box`. Own images are fitted into the box
    /// itself: how much room they leave around the sign is not known.
    [[nodiscard]] static Box imageBox(const SignDrawing& drawing, const Box& box);

  private:
    [[nodiscard]] SignDrawing read(const std::string& code);
    [[nodiscard]] std::string imageIn(std::string_view directory, const std::string& code) const;

    const FileSystem& files_;
    std::string directory_;
    std::optional<Outlines> outlines_;
    std::unordered_map<std::string, SignDrawing> read_;
};

}  // namespace karvel
