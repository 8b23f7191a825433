#include "compose/DisplayLine.hpp"

#include <algorithm>

#include "compose/UndoFile.hpp"

namespace karvel {

namespace {

constexpr std::size_t kCellCharacters = DisplayLine::kCells * kCodeLength;
/// The insert position of the last cell, in characters. Behind it the cursor scrolls the cells.
constexpr std::int16_t kLastCellPosition = (DisplayLine::kCells - 1) * kCodeLength;
constexpr std::uint8_t kHighestCount = 253;  ///< one byte holds little more

MessageBox limitBox()
{
    return {.title = "SISTEMA", .text = "attenzione limite massimo caratteri 84", .icon = Icon::Critical};
}

}  // namespace

DisplayLine::DisplayLine(const FileSystem& files, Pictures& pictures, UserInterface& ui,
                         const SignImages& images, MissingSignMode& modes)
    : files_(files), pictures_(pictures), ui_(ui), images_(images), modes_(modes)
{
}

/// A cell whose image cannot be loaded stays blank; the sign counts all the same.
void DisplayLine::load(std::size_t cell, std::string_view code, int offset)
{
    std::string path = images_.path(code);
    cells_[cell].path = pictures_.canLoad(path) ? std::move(path) : std::string();
    cells_[cell].code = code;
    cells_[cell].offset = offset;
}

void DisplayLine::moveBorderTo(std::size_t cell)
{
    for (Cell& each : cells_) {
        each.border = false;
    }
    cells_[cell].border = true;
}

void DisplayLine::clearPictures(std::size_t first, std::size_t last)
{
    for (std::size_t i = first; i <= last && i < kCells; ++i) {
        cells_[i].path.clear();
        cells_[i].code.clear();
        cells_[i].offset = -1;
    }
}

void DisplayLine::clearCells()
{
    clearPictures(0, kCells - 1);
    for (Cell& cell : cells_) {
        cell.border = false;
    }
}

void DisplayLine::forgetSelection()
{
    CellSelection_.fill({});
    deleteEnabled_ = false;
}

/// Shows up to `signs` signs of the phrase from the character `offset` on, and stores that offset. The
/// selection belongs to the sign that a cell showed before: it is forgotten.
void DisplayLine::showStretch(std::size_t offset, std::size_t signs)
{
    forgetSelection();
    clearPictures(0, kCells - 1);
    showCodes(std::string_view(codes_).substr(offset, signs * kCodeLength), static_cast<int>(offset));
    firstVisible_ = static_cast<std::int16_t>(offset);
}

/// The stretch whose last sign is number `DisplayCount`; it begins no earlier than the first sign and ends no
/// later than the last.
void DisplayLine::redrawAtCount()
{
    count_ = static_cast<std::uint8_t>(std::min<std::size_t>(count_, std::max(signs(), kCells)));
    showStretch((std::max<std::size_t>(count_, kCells) - kCells) * kCodeLength);
}

/// `offset` is where the codes stand in the phrase, or -1.
void DisplayLine::showCodes(std::string_view codes, int offset)
{
    const auto pieces = splitCodes(codes.substr(0, kCellCharacters));
    for (std::size_t cell = 0; cell < pieces.size(); ++cell) {
        load(cell, pieces[cell], offset < 0 ? -1 : offset + static_cast<int>(cell * kCodeLength));
    }
}

void DisplayLine::showFrom0(std::string_view codes)
{
    forgetSelection();
    // A found entry with exactly the signs of the phrase shows the start of the phrase itself, which can be
    // edited.
    const bool phrase = codes == codes_;
    firstVisible_ = phrase ? 0 : firstVisible_;
    showCodes(codes, phrase ? 0 : -1);
}

void DisplayLine::showFound(std::string_view codes)
{
    clearPictures(1, kCells - 1);
    showFrom0(codes);
}

bool DisplayLine::refuseAtLimit(std::size_t more)
{
    // A favourite with a short path may have added less than a whole code: characters are counted, not signs.
    if (codes_.size() + more * kCodeLength <= kLimit * kCodeLength) {
        return false;
    }
    ui_.ask(limitBox());
    return true;
}

bool DisplayLine::refuseAtCount254()
{
    if (count_ != kHighestCount + 1) {
        return false;
    }
    // Kept: the count is one byte. The user is told before it overflows, whatever set it so high.
    ui_.ask(limitBox());
    count_ = kHighestCount;
    insertPosition_ = kHighestCount * kCodeLength;
    return true;
}

void DisplayLine::advanceInsertPosition()
{
    insertPosition_ = static_cast<std::int16_t>(insertPosition_ + static_cast<int>(kCodeLength));
    if (count_ < kCells - 1) {
        insertPosition_ = static_cast<std::int16_t>(count_ * kCodeLength);
        cursorEnabled_ = true;
    }
}

void DisplayLine::saveUndoState(std::int16_t position) const
{
    saveUndo(files_, {codes_, count_, firstVisible_, position});
}

void DisplayLine::restartIfBlank()
{
    if (cells_[0].blank()) {
        count_ = 0;
    }
}

void DisplayLine::insert(std::string_view code, std::int16_t position)
{
    saveUndoState(position);
    add(code);
}

void DisplayLine::add(std::string_view code)
{
    restartIfBlank();
    if (code.empty()) {
        return;
    }
    if (count_ < kCells) {
        load(count_, code, static_cast<int>(codes_.size()));
        moveBorderTo(count_);
        ++count_;
        codes_ += code.substr(0, kCodeLength);
        return;
    }
    cursorEnabled_ = true;
    codes_ += code;
    const std::size_t offset = codes_.size() > kCellCharacters ? codes_.size() - kCellCharacters : 0;
    showStretch(offset);
    // Kept: the count stays as it is although the cells show the last twelve signs; the cursor buttons start
    // from it, so that the first step right after typing a long phrase reads it from sign 13 on.
    moveBorderTo((codes_.size() - offset - 1) / kCodeLength);
}

void DisplayLine::cursorLeft()
{
    if (count_ == kCells) {
        if (firstVisible_ <= 0) {
            return;
        }
        count_ = static_cast<std::uint8_t>(
            std::min(signs(), static_cast<std::size_t>(firstVisible_) / kCodeLength + kCells));
    }
    insertPosition_ = static_cast<std::int16_t>(codes_.size() + kCodeLength);
    if (insertPosition_ >= kLastCellPosition && count_ > kCells) {
        --count_;
        redrawAtCount();
    }
}

void DisplayLine::cursorRight()
{
    if (count_ * kCodeLength >= codes_.size()) {
        return;
    }
    if (insertPosition_ >= kLastCellPosition && count_ >= kCells) {
        ++count_;
        redrawAtCount();
    }
}

void DisplayLine::startOfPhrase()
{
    if (codes_.empty()) {
        ui_.ask({.title = "Messaggio di sistema",
                 .text = "Questo pulsante vi porta a inizio frase, ora non è scritto niente.",
                 .icon = Icon::Information});
        return;
    }
    if (signs() > kCells) {
        showStretch(0);
        count_ = kCells;
    }
}

void DisplayLine::endOfPhrase()
{
    if (signs() <= kCells) {
        return;
    }
    insertPosition_ = static_cast<std::int16_t>(codes_.size());
    // The twelfth cell stays empty: it is the place after the last sign.
    showStretch(codes_.size() - (kCells - 1) * kCodeLength, kCells - 1);
    count_ = static_cast<std::uint8_t>(signs());
}

void DisplayLine::clickCell(std::size_t cell)
{
    if (cells_[cell].blank() || !cells_[cell].ofPhrase()) {
        return;
    }
    if (deleteEnabled_) {
        const bool again = selected(cell);
        forgetSelection();
        if (again) {
            return;
        }
    }
    deleteEnabled_ = true;
    selectedCell_ = static_cast<std::uint8_t>(cell);
    if (CellSelection_[cell].empty()) {
        CellSelection_.fill("diss");
        CellSelection_[cell] = "True";
    }
}

void DisplayLine::deleteSelected()
{
    if (!deleteEnabled_) {
        return;
    }
    const Cell shown = cells_[selectedCell_];
    forgetSelection();
    // The sign may have left the phrase since it was selected, as when it became a favourite.
    if (shown.blank() || !shown.ofPhrase() || static_cast<std::size_t>(shown.offset) >= codes_.size()) {
        return;
    }
    removeAt(static_cast<std::size_t>(shown.offset));
}

void DisplayLine::removeLast()
{
    forgetSelection();
    if (!codes_.empty()) {
        removeAt((codes_.size() - 1) / kCodeLength * kCodeLength);
    }
}

/// Takes the sign at the character `offset` out and shows the phrase again from about where it was shown.
void DisplayLine::removeAt(std::size_t offset)
{
    codes_.erase(offset, kCodeLength);
    if (signs() <= kCells) {
        showStretch(0);
        count_ = static_cast<std::uint8_t>(signs());
        // A damaged undo file may have left less than one sign.
        moveBorderTo(std::max<std::size_t>(signs(), 1) - 1);
        return;
    }
    const auto first = static_cast<std::size_t>(std::max(0, firstVisible_ - static_cast<int>(kCodeLength)));
    showStretch(std::min(first, codes_.size()));
    count_ = static_cast<std::uint8_t>(std::min(signs(), first / kCodeLength + kCells));
}

/// What clearing and undo have in common: nothing composed, nothing shown, the border at the first cell.
void DisplayLine::emptyDisplay()
{
    clearCells();
    cells_[0].border = true;
    forgetSelection();
    firstVisible_ = 0;
    insertPosition_ = 0;
    count_ = 0;
    if (modes_.active()) {
        modes_.leave();
    }
    codes_.clear();
}

void DisplayLine::clearAll()
{
    emptyDisplay();
}

void DisplayLine::undo()
{
    emptyDisplay();
    const UndoState state = loadUndo(files_);
    codes_ = state.DisplayCodes;
    insertPosition_ = static_cast<std::int16_t>(state.InsertPosition - static_cast<int>(kCodeLength));
    // Always the first twelve signs, whatever was visible when the state was saved.
    showStretch(0);
    // Kept: after an undo the display counts as full, so the next sign shows the end of the phrase.
    count_ = kCells;
}

void DisplayLine::dropLastCode()
{
    codes_.resize(codes_.size() - std::min(codes_.size(), kCodeLength));
    // Its cell may go on showing it: such a cell no longer stands for a sign of the phrase, nor for the one
    // that is composed next in its place.
    for (Cell& cell : cells_) {
        // A damaged phrase may have lost a part of the sign.
        const std::size_t length = std::min(cell.code.size(), kCodeLength);
        if (cell.offset + static_cast<int>(length) > static_cast<int>(codes_.size())) {
            cell.offset = -1;
        }
    }
}

void DisplayLine::consume(std::size_t characters)
{
    codes_.erase(0, characters);
    for (Cell& cell : cells_) {
        cell.offset = -1;
    }
}

void DisplayLine::reload()
{
    for (std::size_t i = 0; i < kCells; ++i) {
        if (const Cell cell = cells_[i]; !cell.code.empty()) {
            load(i, cell.code, cell.offset);
        }
    }
}

void DisplayLine::resetBorders()
{
    moveBorderTo(std::min<std::size_t>(count_, kCells - 1));
}

}  // namespace karvel
