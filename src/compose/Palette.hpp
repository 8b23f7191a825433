#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/Pictures.hpp"
#include "base/SignCode.hpp"
#include "base/UserInterface.hpp"
#include "compose/DisplayLine.hpp"
#include "compose/MissingSignMode.hpp"
#include "compose/SignFinder.hpp"
#include "compose/SignImages.hpp"

namespace karvel {

/// The one operation through which every sign comes to the display line.
class Insertion {
  public:
    /// `finder` learns which signs are used; both must outlive the insertion.
    Insertion(DisplayLine& display, SignFinder& finder) : display_(display), finder_(finder) {}

    /// How many signs the favourites strip proposes; every insertion starts over.
    [[nodiscard]] int SuggestionCount() const { return SuggestionCount_; }

    /// Inserts directly. Kept: proposals that continue the phrase were planned behind a mode that nothing
    /// sets, and people rely on a key doing one thing at once. Throws like DisplayLine::insert.
    void operator()(std::string_view code, std::int16_t position)
    {
        SuggestionCount_ = 0;
        display_.insert(code, position);
        finder_.used(std::string(code));
    }

    /// Inserts the next of several signs: the undo state was saved before the first.
    void further(std::string_view code)
    {
        display_.add(code);
        finder_.used(std::string(code));
    }

  private:
    DisplayLine& display_;
    SignFinder& finder_;
    int SuggestionCount_ = 0;
};

/// The 53 keys of one category, and the page that they show.
class Palette {
  public:
    static constexpr std::size_t kTableRows = 19;

    Palette(Pictures& pictures, UserInterface& ui, const SignImages& images, MissingSignMode& modes,
            DisplayLine& display, Insertion& insertion);

    [[nodiscard]] std::uint8_t CurrentPage() const { return page_; }
    [[nodiscard]] const std::string& CurrentSignCode() const { return currentSign_; }
    /// A favourite or a card sets the current sign too.
    void setCurrentSignCode(std::string code) { currentSign_ = std::move(code); }

    /// The code stored for key `key` (0 to 52) in row `row` (0 to 18); empty before the page was loaded.
    [[nodiscard]] const std::string& CodeTable(std::size_t row, std::size_t key) const
    {
        return table_[row][key];
    }
    /// The code that pressing `key` gives now.
    [[nodiscard]] const std::string& codeOf(std::size_t key) const { return table_[page_][key]; }
    /// The image on `key`; empty for a blank key.
    [[nodiscard]] const std::string& picture(std::size_t key) const { return pictureOf_[key]; }
    /// The third panel of the status bar.
    [[nodiscard]] const std::string& codePanel() const { return codePanel_; }
    /// What the page box shows.
    [[nodiscard]] const std::string& pageText() const { return pageText_; }

    /// Start-up: page 1 without loading it.
    void reset();

    /// Start-up's loading of page 1. Throws RuntimeError at the first image that cannot be loaded; the keys
    /// before it are filled.
    void loadFirstPage();

    /// Fills the keys and the row of `CodeTable` for the current page; images that cannot be loaded leave
    /// their keys blank.
    void loadPage();

    /// Turns back one page and stores its codes in row 1. No control calls it.
    /// Throws RuntimeError at the first image that cannot be loaded.
    void stepBack();

    /// While the scroll bar is dragged to `value` (1 to 14), only the page box follows.
    void scrolled(int value);

    /// The scroll bar's value has changed to `value` (1 to 14).
    void changed(int value);

    /// Enter was pressed in the page box, which holds `text`.
    void enterPage(std::string_view text);

    /// What the user has typed into the page box; nothing happens before Enter.
    void typed(std::string_view text) { pageText_ = text; }

    /// Key `key` (0 to 52) was pressed. Throws like DisplayLine::insert.
    void press(std::size_t key);

    /// The same for the sign `code`, wherever it was chosen. False when it was refused: nothing is inserted.
    bool pressCode(const std::string& code);

    /// The same for several signs at once. They are refused whole when the display has not enough space for
    /// them, and the undo state is saved once, before the first. Throws like DisplayLine::insert: nothing is
    /// inserted.
    bool pressCodes(std::span<const std::string> codes);

    /// The letter that stands for page `page` (1 to 14).
    [[nodiscard]] static char pageLetter(int page);

  private:
    bool refusesMissingSign(std::size_t times);
    void loadKey(std::size_t row, char letter, std::size_t key, bool mustLoad);

    Pictures& pictures_;
    UserInterface& ui_;
    const SignImages& images_;
    MissingSignMode& modes_;
    DisplayLine& display_;
    Insertion& insertion_;

    std::uint8_t page_ = 1;
    std::string currentSign_;
    std::array<std::array<std::string, kKeys>, kTableRows> table_;
    std::array<std::string, kKeys> pictureOf_;
    std::string codePanel_ = "Codice: ";
    std::string pageText_ = "A";
};

}  // namespace karvel
