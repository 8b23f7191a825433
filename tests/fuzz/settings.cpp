// The settings files with any content, and what the program writes into them read back.

#include <limits>

#include "Composing.hpp"
#include "settings/Colours.hpp"
#include "settings/GlyphDirectoryChooser.hpp"
#include "text/CodePage.hpp"

using namespace karvel;
using fuzz::errorOf;
using fuzz::expectedNumber;
using fuzz::ExpectedNumber;
using fuzz::require;
using testing::FieldModel;

namespace {

struct Bench {
    fuzz::Drive drive;
    fuzz::Quiet quiet;
};

void mode(const Bench& bench, std::string_view bytes)
{
    bench.drive.put("settaggi/conf.cfg", bytes);
    FieldModel model(bytes);
    const ExpectedNumber expected = expectedNumber(model, 0, 255);
    SearchModes modes;
    require(errorOf([&] { modes.restore(bench.drive.files); }) == expected.error, "the mode is read or not");
    require(modes.SearchMode() == expected.value, "the mode is the number in the file");
    int ticks = 0;
    for (int each = 1; each <= 6; ++each) {
        ticks += modes.ticked(static_cast<Mode>(each)) ? 1 : 0;
    }
    require(ticks == (modes.SearchMode() >= 1 && modes.SearchMode() <= 5 ? 1 : 0), "one mode is ticked");
    const auto chosen = static_cast<Mode>(1 + bytes.size() % 5);
    modes.choose(chosen, bench.drive.files);
    SearchModes again;
    again.restore(bench.drive.files);
    require(again.is(chosen) && again.ticked(chosen), "the mode chosen is the mode restored");
}

void colours(const Bench& bench, std::string_view bytes)
{
    constexpr double kLowest = std::numeric_limits<std::int32_t>::min();
    constexpr double kHighest = std::numeric_limits<std::int32_t>::max();
    bench.drive.put("settaggi/coloreD.prf", bytes);
    bench.drive.put("settaggi/coloreF.prf", bytes);
    FieldModel model(bytes);
    const ExpectedNumber expected = expectedNumber(model, kLowest, kHighest);
    Colours read;
    require(errorOf([&] { rereadColours(bench.drive.files, read); }) == expected.error,
            "colours are read or not");
    require(expected.error != 0 || read.window.packed == expected.value,
            "the colour is the number in the file");
    require(expected.error == 0 || read.display == Colours::kDisplayDefault, "a bad file changes no colour");
    require(read.display.red() <= 255 && read.display.green() <= 255 && read.display.blue() <= 255,
            "a colour has three bytes");
    (void)read.display.wantsDarkText();
    applyWindowColour(bench.drive.files, read, read.display);
    require(readColour(bench.drive.files, kWindowColourPath) == read.display, "a colour comes back");
}

void directory(Bench& bench, std::string_view bytes)
{
    bench.drive.put("settaggi/conf2.cfg", bytes);
    FieldModel model(bytes);
    const auto expected = model.field();
    const FileSystem& files = bench.drive.files;
    fuzz::Composing composing(files, bench.quiet);
    SignImages& images = composing.images;
    require(errorOf([&] { images.restore(files); }) == (expected ? 0 : 62), "a directory is read or not");
    require(images.GlyphDirectory() == (expected ? decode(*expected) : kDefaultGlyphDirectory),
            "the directory is the field in the file");
    // Any directory that the user points at is found again at the next start, or refused.
    GlyphDirectoryChooser chooser(files, bench.quiet, images, composing.palette, composing.display);
    chooser.directoryChanged(bytes);
    bool taken = false;
    require(errorOf([&] { taken = chooser.confirm(); }) == 0, "confirming does not fail");
    SignImages next;
    require(errorOf([&] { next.restore(files); }) == (taken || expected ? 0 : 62),
            "the file is as good as before");
    require(next.GlyphDirectory() == (taken ? chooser.DirectoryCandidate() : images.GlyphDirectory()),
            "the directory chosen comes back, or what is refused changes nothing");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Bench bench;
    fuzz::Input input(data, size);
    switch (input.byte() % 3) {
        case 0:
            mode(bench, input.rest());
            break;
        case 1:
            colours(bench, input.rest());
            break;
        default:
            directory(bench, input.rest());
    }
    return 0;
}
