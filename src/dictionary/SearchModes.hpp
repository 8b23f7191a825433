#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "files/FileSystem.hpp"

namespace karvel {

inline constexpr std::string_view kSearchModePath = "C:\\programmi\\Karvel\\settaggi\\conf.cfg";

/// How the phrase is compared with the dictionary.
enum class Mode : std::uint8_t {
    Equal = 1,
    Split = 2,
    Contains = 3,
    StartsWith = 4,
    EndsWith = 5,
    MissingSign = 6,
};

inline constexpr std::size_t kModes = 6;

/// The mode that a stored number means.
/// Kept: any number may be in the settings file, and one that is no mode searches like "Cerca simile".
[[nodiscard]] constexpr Mode modeOf(std::uint8_t number)
{
    return number >= 1 && number <= kModes ? static_cast<Mode>(number) : Mode::Contains;
}

/// The search mode, the ticks of its menu and the heading above the display.
class SearchModes {
  public:
    /// The number as it is stored; it may be no mode.
    [[nodiscard]] std::uint8_t SearchMode() const { return number_; }

    /// How a search compares now.
    [[nodiscard]] Mode mode() const { return modeOf(number_); }
    [[nodiscard]] bool is(Mode mode) const { return this->mode() == mode; }

    /// Whether the menu item of `mode` is ticked.
    [[nodiscard]] bool ticked(Mode mode) const { return ticks_[index(mode)]; }

    /// The caption of `Label1`.
    [[nodiscard]] const std::string& caption() const { return caption_; }

    /// Reads the stored number at start-up. For 1 to 5 the menu and the heading follow; with any other number
    /// they stay as they were made.
    /// Throws RuntimeError when the file cannot be read, 6 when the number is no byte.
    void restore(const FileSystem& files);

    /// A choice in the menu. Changes for modes 1 to 5, in this order: tick, mode, settings file, heading.
    /// When the file cannot be written (RuntimeError) the mode has changed already and the heading has not.
    /// For MissingSign only tick and mode change: the heading and the file keep the mode to return to.
    void choose(Mode mode, const FileSystem& files);

    /// The missing-sign key: ticks its item and sets mode 6.
    void activateMissingSign();

    /// Back from the missing-sign search to "Termine presente", with its heading; the file stays as it is.
    void leaveMissingSign();

  private:
    static constexpr std::size_t index(Mode mode) { return static_cast<std::size_t>(mode) - 1; }
    void tickOnly(Mode mode);

    std::uint8_t number_ = 0;
    std::array<bool, kModes> ticks_{};
    std::string caption_ = "TIPO RICERCA:";
};

}  // namespace karvel
