#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "files/FileSystem.hpp"

namespace karvel {

inline constexpr std::string_view kSearchModePath = "C:\\programmi\\Karvel\\settaggi\\conf.cfg";

/// How the phrase is compared with the dictionary; a value outside these searches like Contains.
enum class Mode : std::uint8_t {
    Equal = 1,
    Split = 2,
    Contains = 3,
    StartsWith = 4,
    EndsWith = 5,
    MissingSign = 6,
};

inline constexpr std::size_t kModes = 6;

/// The search mode, the ticks of its menu and the heading above the display.
class SearchModes {
  public:
    /// The modes' menu items in the order of their numbers, by the names of their controls.
    static constexpr std::array<std::string_view, kModes> kItems = {"Uguale", "traduci", "Cerca",
                                                                    "inizia", "finisce", "mancante"};

    /// The value as it is stored; any byte may have come from the settings file.
    [[nodiscard]] std::uint8_t SearchMode() const { return mode_; }
    [[nodiscard]] bool is(Mode mode) const { return mode_ == static_cast<std::uint8_t>(mode); }

    /// Whether the menu item of `mode` is ticked.
    [[nodiscard]] bool ticked(Mode mode) const { return ticks_[index(mode)]; }

    /// The caption of `Label1`.
    [[nodiscard]] const std::string& caption() const { return caption_; }

    /// What start-up does: takes the stored mode from `files`. For 1 to 5 the menu and the heading follow;
    /// any other value stays as it is, the menu and the heading as they were made.
    /// Throws RuntimeError when the file cannot be read, 6 when the number is no byte.
    void restore(const FileSystem& files);

    /// What the menu does for modes 1 to 5: tick, mode, settings file, heading, in this order. When the file
    /// cannot be written (RuntimeError) the mode has changed already and the heading has not.
    /// For MissingSign only tick and mode change: the heading and the file keep the mode to return to.
    void choose(Mode mode, const FileSystem& files);

    /// The missing-sign key: ticks its item and sets mode 6.
    void activateMissingSign();

    /// Back from the missing-sign search to "Termine presente", with its heading; the file stays as it is.
    void leaveMissingSign();

  private:
    static constexpr std::size_t index(Mode mode) { return static_cast<std::size_t>(mode) - 1; }
    void tickOnly(Mode mode);

    std::uint8_t mode_ = 0;
    std::array<bool, kModes> ticks_{};
    std::string caption_ = "TIPO RICERCA:";
};

}  // namespace karvel
