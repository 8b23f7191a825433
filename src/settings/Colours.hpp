#pragma once

#include <cstdint>
#include <string_view>

#include "files/FileSystem.hpp"

namespace karvel {

inline constexpr std::string_view kDisplayColourPath = "C:\\programmi\\Karvel\\settaggi\\coloreD.prf";
/// Kept: one of the two names has always been written with a blank behind it, which the file system drops.
inline constexpr std::string_view kWindowColourPath = "C:\\programmi\\Karvel\\settaggi\\coloreF.prf ";

/// A colour as the settings files hold it: red + 256 x green + 65536 x blue.
struct Colour {
    std::int32_t packed = 0;

    [[nodiscard]] static constexpr Colour rgb(int red, int green, int blue)
    {
        return {red + 256 * green + 65536 * blue};
    }
    [[nodiscard]] constexpr int red() const { return packed & 0xFF; }
    [[nodiscard]] constexpr int green() const { return packed >> 8 & 0xFF; }
    [[nodiscard]] constexpr int blue() const { return packed >> 16 & 0xFF; }

    /// Whether black text reads better on it than white text.
    [[nodiscard]] bool wantsDarkText() const;

    friend bool operator==(const Colour&, const Colour&) = default;
};

/// The two colours that the user chooses.
struct Colours {
    static constexpr Colour kDisplayDefault = Colour::rgb(0, 128, 128);
    static constexpr Colour kWindowDefault = Colour::rgb(192, 192, 192);

    Colour display = kDisplayDefault;
    Colour window = kWindowDefault;
};

/// The colour stored at `path`. Throws RuntimeError when the file cannot be read, 6 when the number is none
/// that a colour can have.
[[nodiscard]] Colour readColour(const FileSystem& files, std::string_view path);

/// Replaces the file at `path`. Throws RuntimeError; the file is then as it was.
void writeColour(const FileSystem& files, std::string_view path, Colour colour);

/// Both colours as their files hold them now. Throws like `readColour`.
[[nodiscard]] Colours readColours(const FileSystem& files);

/// Applies a colour, then writes it. Throws like `writeColour`; the colour stays applied for this run.
void applyDisplayColour(const FileSystem& files, Colours& colours, Colour chosen);
void applyWindowColour(const FileSystem& files, Colours& colours, Colour chosen);

}  // namespace karvel
