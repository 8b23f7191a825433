#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/UserInterface.hpp"
#include "compose/DisplayLine.hpp"
#include "compose/Palette.hpp"
#include "compose/SignImages.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

inline constexpr std::string_view kStripPath = "C:\\programmi\\Karvel\\preferiti";
inline constexpr std::string_view kPageDirectory = "C:\\programmi\\Karvel\\prefe\\";

/// The favourite signs: eight buttons, nine slots, and the little panel that deletes them.
class FavouritesStrip {
  public:
    static constexpr std::size_t kButtons = 8;
    static constexpr std::size_t kSlots = 9;  ///< the last one has no button; it moves up after a deletion

    /// One of the buttons `Cmd(0)` to `Cmd(7)`.
    struct Key {
        std::string picture;  ///< path of its image, in the system's form; empty for none
        std::string caption;  ///< empty, or the mark of the deletion panel
        bool visible = false;
    };

    /// All must outlive the strip. `page` is the number that the page buttons count with.
    FavouritesStrip(const FileSystem& files, UserInterface& ui, const SignImages& images,
                    DisplayLine& display, Palette& palette, Insertion& insertion, std::int16_t& page);

    [[nodiscard]] const std::array<std::string, kSlots>& Favourites() const { return favourites_; }
    [[nodiscard]] const std::array<Key, kButtons>& buttons() const { return buttons_; }
    /// Whether slots 0 to 7 hold nothing; a hidden strip need not be empty.
    [[nodiscard]] bool empty() const;
    [[nodiscard]] std::int16_t SelectedFavourite() const { return selected_; }
    [[nodiscard]] std::int16_t FavouriteCount() const { return count_; }
    [[nodiscard]] std::uint8_t LastFavouritePressed() const { return lastPressed_; }
    /// Whether `Co2`, `Co3`, `Co4`, `Co5` and `Command2` are shown.
    [[nodiscard]] bool panelVisible() const { return panelVisible_; }
    /// The caption of `Label2`.
    [[nodiscard]] const std::string& pageName() const { return pageName_; }

    /// "Inserisci preferiti": the sign chosen last replaces slot 0 and leaves the phrase.
    void insertCurrent();

    /// Button `index` (0 to 7) was pressed with the left mouse button: its sign goes to the display line.
    /// Throws RuntimeError when the undo file cannot be written: the phrase is then as it was.
    void press(std::size_t index);

    /// The sign that pressing button `index` inserts: what stands at characters 24 to 26 of its path.
    [[nodiscard]] std::string signOf(std::size_t index) const;

    void openPanel();
    void markRight();
    void markLeft();
    void deleteMarked();
    void closePanel();
    void deleteAll();

    /// "Nascondi preferiti": the slots keep what they hold.
    void hide();

    /// What "Facilitato" does to the strip before it would propose signs: the buttons lose their pictures and
    /// disappear, none counts as filled. The slots keep what they hold.
    void hideForFacilitated();

    /// "Visualizza preferiti": page 1, without changing the page number.
    /// Throws RuntimeError for a missing or short file; the strip is then as it was.
    void showFirstPage();

    /// Turns back or on by one page. Whatever cannot be read leaves its slots as they were.
    void previousPage();
    void nextPage();

    /// "Save preferiti": writes all nine slots to the file `chosen` + ".prf"; nothing when `chosen` is empty.
    /// `chosen` is a path of the system or of the host. Throws RuntimeError; the file is then as it was.
    void save(std::string_view chosen) const;

    /// "Load preferiti": slots 0 to 7 from the file `chosen`; nothing when that does not end in "prf".
    /// Throws RuntimeError for a missing or short file; the strip is then as it was.
    void load(std::string_view chosen);

  private:
    void showButton(std::size_t index);
    void showStrip();
    void readWhole(std::string_view path);
    void turnTo(int page);
    void writeStripFile() const;

    const FileSystem& files_;
    UserInterface& ui_;
    const SignImages& images_;
    DisplayLine& display_;
    Palette& palette_;
    Insertion& insertion_;
    std::int16_t& page_;

    std::array<std::string, kSlots> favourites_;
    std::array<Key, kButtons> buttons_;
    std::int16_t selected_ = 0;
    std::int16_t count_ = 0;
    std::uint8_t lastPressed_ = 0;
    bool panelVisible_ = false;
    std::string pageName_ = "pre1";
};

}  // namespace karvel
