#include "compose/Palette.hpp"

#include <algorithm>

#include "text/CodePage.hpp"

namespace karvel {

Palette::Palette(Pictures& pictures, UserInterface& ui, const SignImages& images, MissingSignMode& modes,
                 DisplayLine& display, Insertion& insertion)
    : pictures_(pictures), ui_(ui), images_(images), modes_(modes), display_(display), insertion_(insertion)
{
}

char Palette::pageLetter(int page)
{
    const char letter = kCategories[static_cast<std::size_t>(page) - 1];
    return static_cast<char>(letter - 'a' + 'A');
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
        if (letter == 'J' || letter == 'K') {
            letter = 'L';  // no category has these letters
        }
        const std::size_t category = kCategories.find(static_cast<char>(letter - 'A' + 'a'));
        page_ = static_cast<std::uint8_t>(category == std::string_view::npos ? 1 : category + 1);
        pageText_ = pageLetter(page_);
    }
    loadPage();
}

/// `times`: how often the missing sign is to be added. True when it may not: its search is on already, or it
/// is among the signs more than once.
bool Palette::refusesMissingSign(std::size_t times)
{
    if (times == 0) {
        return false;
    }
    if (modes_.active() || times > 1) {
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
    return pressCodes({&code, 1});
}

bool Palette::pressCodes(std::span<const std::string> codes)
{
    if (codes.empty() || display_.refuseAtCount254() || display_.refuseAtLimit(codes.size())) {
        return false;
    }
    currentSign_ = codes.back();
    codePanel_ = "Codice: " + currentSign_;
    if (refusesMissingSign(static_cast<std::size_t>(std::ranges::count(codes, kMissingSign)))) {
        return false;
    }
    display_.advanceInsertPosition();
    insertion_(codes.front(), display_.InsertPosition());
    for (const std::string& code : codes.subspan(1)) {
        display_.advanceInsertPosition();
        insertion_.further(code);
    }
    return true;
}

}  // namespace karvel
