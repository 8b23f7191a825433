#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/FileSystem.hpp"

namespace karvel {

inline constexpr std::string_view kOutlinesPath = "C:\\programmi\\Karvel\\scrittura\\segni.dat";

/// A step along the outline of a sign. Thousandths of the font's em, the origin at the lower left corner of
/// the ink, y going up.
struct OutlineStep {
    enum class Kind : std::uint8_t { Move, Line, Curve, Close };

    Kind kind = Kind::Close;
    int controlX = 0;  ///< of a quadratic curve
    int controlY = 0;
    int x = 0;
    int y = 0;
};

/// The outlines of the signs, to be filled by the non-zero rule. `tools/make-outlines` tells the file's form.
class Outlines {
  public:
    /// None at all.
    Outlines() = default;

    /// Of a file's bytes.
    explicit Outlines(std::string file) : file_(std::move(file)) {}

    /// Of the installed file; none when it cannot be read.
    [[nodiscard]] static Outlines installed(const FileSystem& files);

    /// The outline of the sign with this code; nothing when the file lacks it or is damaged there.
    [[nodiscard]] std::optional<std::vector<OutlineStep>> of(std::string_view code) const;

  private:
    std::string file_;
};

}  // namespace karvel
