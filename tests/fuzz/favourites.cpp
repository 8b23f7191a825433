// Pages of favourites with any content: read, turned, pressed, thinned, saved and loaded.

#include <algorithm>

#include "Composing.hpp"
#include "favourites/FavouritesStrip.hpp"
#include "text/CodePage.hpp"

using namespace karvel;
using fuzz::errorOf;
using fuzz::require;

namespace {

using Slots = std::array<std::string, FavouritesStrip::kSlots>;

/// The slots that the file `bytes` gives, beginning with `slots`; false when it gives fewer than eight.
bool readPage(std::string_view bytes, Slots& slots)
{
    testing::FieldModel model(bytes);
    for (std::size_t i = 0; i < FavouritesStrip::kButtons; ++i) {
        const auto field = model.field();
        if (!field) {
            return false;
        }
        slots[i] = decode(*field);
    }
    return true;
}

void looksRight(const FavouritesStrip& strip)
{
    require(strip.SelectedFavourite() >= 0 && strip.SelectedFavourite() < 8, "the mark is on a button");
    for (std::size_t i = 0; i < FavouritesStrip::kButtons; ++i) {
        const std::string sign = strip.signOf(i);
        require(sign.size() <= 3, "a favourite is one sign");
        require(std::ranges::all_of(sign, [](char c) { return c >= ' ' && c < 0x7F; }), "and plain text");
    }
}

void act(FavouritesStrip& strip, Palette& palette, unsigned what)
{
    switch (what % 12) {
        case 0:
            return strip.openPanel();
        case 1:
            return strip.markRight();
        case 2:
            return strip.markLeft();
        case 3:
            return strip.deleteMarked();
        case 4:
            return strip.closePanel();
        case 5:
            return strip.hide();
        case 6:
            return strip.previousPage();
        case 7:
            return strip.nextPage();
        case 8:
            return what > 200 ? strip.deleteAll() : strip.hideForFacilitated();
        case 9:
            palette.pressCode("a0" + std::to_string(1 + what % 9));
            return strip.insertCurrent();
        default:
            strip.press(what / 12 % 8);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const fuzz::Drive drive;
    static fuzz::Quiet quiet;
    fuzz::Input input(data, size);
    const std::string_view actions = input.tail(6);
    const std::string_view bytes = input.rest();
    drive.put("prefe/pre1.prf", bytes);
    drive.put("prefe/pre2.prf", bytes.substr(bytes.size() / 2));

    fuzz::Composing composing(drive.files, quiet);
    std::int16_t page = 1;
    FavouritesStrip strip(drive.files, quiet, composing.images, composing.display, composing.palette,
                          composing.insertion, page);
    Slots slots;
    const bool whole = readPage(bytes, slots);
    require(errorOf([&] { strip.showFirstPage(); }) == (whole ? 0 : 62),
            "a page is read or told to be short");
    require(strip.Favourites() == (whole ? slots : Slots()), "all of a page or nothing");
    strip.nextPage();
    Slots second = whole ? slots : Slots();
    (void)readPage(bytes.substr(bytes.size() / 2), second);
    require(strip.Favourites() == second, "turning takes what can be read");

    for (const char action : actions) {
        act(strip, composing.palette, static_cast<unsigned char>(action));
        looksRight(strip);
    }
    const Slots before = strip.Favourites();
    strip.save("C:\\programmi\\Karvel\\prefe\\mia");
    strip.deleteAll();
    strip.load("C:\\programmi\\Karvel\\prefe\\mia.prf");
    require(std::equal(before.begin(), before.end() - 1, strip.Favourites().begin()),
            "what is saved comes back");
    return 0;
}
