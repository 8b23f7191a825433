#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/Pictures.hpp"
#include "base/SignCode.hpp"
#include "base/UserInterface.hpp"
#include "compose/MissingSignMode.hpp"
#include "compose/SignImages.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

/// The line of composed signs: the phrase, and the twelve cells that show a stretch of it.
class DisplayLine {
  public:
    static constexpr std::size_t kCells = 12;
    static constexpr std::size_t kLimit = 84;  ///< signs

    struct Cell {
        std::string path;  ///< of the image shown, in the system's form; empty when the cell shows nothing
        std::string code;  ///< of the sign meant, also when its image cannot be shown
        int offset = -1;   ///< where that sign stands in the phrase, characters; -1: it is not of the phrase
        bool border = false;  ///< the single-line frame of the sign inserted last

        [[nodiscard]] bool blank() const { return path.empty(); }
        /// False for a sign of an entry, a split word or a transcription, which cannot be selected.
        [[nodiscard]] bool ofPhrase() const { return offset >= 0; }
    };

    DisplayLine(const FileSystem& files, Pictures& pictures, UserInterface& ui, const SignImages& images,
                MissingSignMode& modes);

    [[nodiscard]] const std::string& DisplayCodes() const { return codes_; }
    [[nodiscard]] std::uint8_t DisplayCount() const { return count_; }
    [[nodiscard]] std::int16_t InsertPosition() const { return insertPosition_; }
    [[nodiscard]] std::int16_t FirstVisibleOffset() const { return firstVisible_; }
    [[nodiscard]] const std::array<Cell, kCells>& cells() const { return cells_; }
    [[nodiscard]] std::size_t signs() const { return codes_.size() / kCodeLength; }

    /// Whether `CSX` and `CDX` may be pressed.
    [[nodiscard]] bool cursorEnabled() const { return cursorEnabled_; }
    /// Whether "cancella geroglifico selezionato" may be pressed.
    [[nodiscard]] bool deleteEnabled() const { return deleteEnabled_; }
    /// Whether `cell` is the one marked for deletion.
    [[nodiscard]] bool selected(std::size_t cell) const { return CellSelection_[cell] == "True"; }

    /// Shows the limit message and returns true when `more` further signs would pass the limit; changes
    /// nothing.
    bool refuseAtLimit(std::size_t more = 1);

    /// The second test of a palette key: at the count 254 it shows the message, resets the count and returns
    /// true.
    bool refuseAtCount254();

    /// What a palette key does to the insert position before it inserts; enables the cursor buttons while the
    /// phrase is short.
    void advanceInsertPosition();

    /// Saves the undo state, then adds the sign `code`. An empty code saves and adds nothing. `position` is
    /// handed on to the undo state. Throws RuntimeError when the undo file cannot be written: the phrase is
    /// then as it was.
    void insert(std::string_view code, std::int16_t position);

    /// Adds the sign `code` as `insert` does, but saves no undo state.
    void add(std::string_view code);

    /// Saves the undo state alone. Throws like `insert`.
    void saveUndoState(std::int16_t position) const;

    void cursorLeft();
    void cursorRight();
    void startOfPhrase();
    void endOfPhrase();

    /// Selects the sign in `cell` for deletion; a second click takes the selection back.
    void clickCell(std::size_t cell);

    /// Removes the sign that the selected cell shows, and nothing when it shows no sign of the phrase.
    void deleteSelected();

    /// Removes the last sign of the phrase; nothing happens when there is none.
    void removeLast();

    void clearAll();

    /// Restores the saved state. When that is missing or damaged, the display is empty and RuntimeError is
    /// thrown.
    void undo();

    /// Saves the undo state, then makes `codes` the phrase and shows its end, as if it had just been
    /// composed. The search mode stays. Throws like `insert`.
    void bringBack(std::string_view codes);

    /// Shows the end of the phrase again in place of an entry; an empty phrase changes nothing.
    void showPhrase();

    /// Shows a found entry: cells 1 to 11 are cleared and its first twelve signs put from cell 0 on. The
    /// phrase stays as it is.
    void showFound(std::string_view codes);

    /// Puts signs into the cells from cell 0 on without clearing any; `codes` beyond the twelfth are not
    /// shown.
    void showFrom0(std::string_view codes);

    /// Clears the pictures of the cells `first` to `last`; borders stay.
    void clearPictures(std::size_t first, std::size_t last);

    /// If cell 0 shows nothing the display restarts there: sets `DisplayCount` to 0.
    void restartIfBlank();

    /// Takes away the last three characters of the phrase; an empty phrase stays empty.
    void dropLastCode();

    /// The phrase as a splitting leaves it: without its first `characters`.
    void consume(std::size_t characters);

    /// Removes every picture and border.
    void clearCells();

    /// Loads the images of the cells again, from the directory that is now in force.
    void reload();

    /// Start-up: all borders off, then on at the cell of the cursor.
    void resetBorders();

  private:
    void load(std::size_t cell, std::string_view code, int offset);
    void showCodes(std::string_view codes, int offset);
    void moveBorderTo(std::size_t cell);
    void showStretch(std::size_t offset, std::size_t signs = kCells);
    void redrawAtCount();
    void removeAt(std::size_t offset);
    void startOver();
    void emptyDisplay();
    void forgetSelection();

    const FileSystem& files_;
    Pictures& pictures_;
    UserInterface& ui_;
    const SignImages& images_;
    MissingSignMode& modes_;

    std::string codes_;
    std::uint8_t count_ = 0;
    std::int16_t insertPosition_ = 0;
    std::int16_t firstVisible_ = 0;
    std::array<Cell, kCells> cells_;
    std::array<std::string, kCells> CellSelection_;
    std::uint8_t selectedCell_ = 0;
    bool cursorEnabled_ = false;
    bool deleteEnabled_ = false;
};

}  // namespace karvel
