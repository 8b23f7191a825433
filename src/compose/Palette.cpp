#include "compose/Palette.hpp"

#include "text/CodePage.hpp"

namespace karvel {

Palette::Palette(Pictures& pictures, UserInterface& ui, const SignImages& images, MissingSignMode& modes,
                 DisplayLine& display, Insertion& insertion)
    : pictures_(pictures), ui_(ui), images_(images), modes_(modes), display_(display), insertion_(insertion)
{
}

char Palette::pageLetter(int page)
{
    return static_cast<char>(page + (page < 10 ? 64 : 66));  // J and K have no page
}

void Palette::reset()
{
    page_ = 1;
    pageText_ = pageLetter(1);
}

void Palette::loadKey(std::size_t row, char letter, std::size_t key, bool mustLoad)
{
    std::string number = std::to_string(key + 1);
    if (key < 9) {
        number.insert(0, "0");
    }
    std::string& code = table_[row][key];
    code = letter + number.substr(0, 2);
    std::string path = images_.path(code);
    if (pictures_.canLoad(path)) {
        pictureOf_[key] = std::move(path);
    } else if (mustLoad) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
}

void Palette::loadFirstPage()
{
    // All codes come first: a missing picture ends the loading, and must not take the later keys' signs away.
    for (std::size_t key = 0; key < kKeys; ++key) {
        table_[1][key] = signCode(1, key);
    }
    for (std::size_t key = 0; key < kKeys; ++key) {
        loadKey(1, 'a', key, true);
    }
}

void Palette::loadPage()
{
    const BusyPointer hourglass(ui_);
    pictureOf_.fill({});
    for (std::size_t key = 0; key < kKeys; ++key) {
        loadKey(page_, kCategories[page_ - 1U], key, false);
    }
}

void Palette::stepBack()
{
    ui_.beep();
    const BusyPointer hourglass(ui_);
    if (page_ > 1) {
        --page_;
    }
    pageText_ = std::to_string(page_);
    for (std::size_t key = 0; key < kKeys; ++key) {
        // Kept: the codes go into row 1 whatever the page is, so the keys keep meaning what they last meant.
        loadKey(1, kCategories[page_ - 1U], key, true);
    }
}

void Palette::scrolled(int value)
{
    pageText_ = pageLetter(value);
}

void Palette::changed(int value)
{
    page_ = static_cast<std::uint8_t>(value);
    pageText_ = pageLetter(value);
    loadPage();
}

void Palette::enterPage(std::string_view text)
{
    {
        const BusyPointer hourglass(ui_);
        const std::string upper = upperCase(text);
        char letter = upper.empty() ? 'A' : upper[0];
        if (letter < 'A' || letter > 'P') {
            letter = 'A';
        }
        if (letter == 'J' || letter == 'K') {
            letter = 'L';
        }
        pageText_ = letter;
        page_ = static_cast<std::uint8_t>(letter - (letter < 'L' ? 64 : 66));
    }
    loadPage();
}

/// True when the missing-sign key was pressed while its search is on already.
bool Palette::refusesMissingSign()
{
    if (currentSign_ != kMissingSign) {
        return false;
    }
    if (modes_.active()) {
        ui_.ask({.title = "Info",
                 .text = "Questo carattere sostituisce già uno o più geroglifici. Pertanto è sufficiente "
                         "premerlo una volta.",
                 .icon = Icon::Information});
        return true;
    }
    modes_.activate();
    ui_.ask({.title = "Informazione",
             .text = "Hai selezionato un carattere speciale che attiva la ricerca 'Geroglifico mancante'",
             .icon = Icon::Information});
    return false;
}

void Palette::press(std::size_t key)
{
    pressCode(codeOf(key));
}

bool Palette::pressCode(const std::string& code)
{
    if (display_.refuseAtCount254() || display_.refuseAtLimit()) {
        return false;
    }
    currentSign_.clear();
    currentSign_ = code;
    codePanel_ = "Codice: " + currentSign_;
    if (refusesMissingSign()) {
        return false;
    }
    display_.advanceInsertPosition();
    insertion_(currentSign_, display_.InsertPosition());
    return true;
}

}  // namespace karvel
