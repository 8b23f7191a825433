#include <charconv>
#include <optional>

#include "cli/Command.hpp"
#include "cli/Output.hpp"
#include "compose/SignImages.hpp"
#include "writing/Grouping.hpp"
#include "writing/ManuelDeCodage.hpp"
#include "writing/Placement.hpp"
#include "writing/Svg.hpp"
#include "writing/UnicodeLayout.hpp"

namespace karvel::cli {

namespace {

constexpr int kUsualHeight = 64;  // pixels
constexpr int kLargestHeight = 10'000;

/// Signs that were given in blocks keep them; others are grouped.
Layout layoutFrom(const std::string& given, bool gardiner, bool ring)
{
    std::string fault;
    std::optional<Layout> layout =
        isArranged(given) ? readLayout(given, fault) : blocksOf(codesFrom(given, gardiner));
    if (!layout) {
        throw UsageError(fault);
    }
    return ring ? ringed(std::move(*layout)) : std::move(*layout);
}

int heightFrom(const std::string& given)
{
    int height = kUsualHeight;
    const char* const end = given.data() + given.size();
    const auto [rest, error] = std::from_chars(given.data(), end, height);
    if (!given.empty() && (error != std::errc() || rest != end || height < 1 || height > kLargestHeight)) {
        throw UsageError("l'altezza è un numero da 1 a " + std::to_string(kLargestHeight) + ", non \"" +
                         given + "\"");
    }
    return height;
}

/// The user's directory of sign images; the usual one where the settings do not say.
std::string signDirectory(const FileSystem& files)
{
    SignImages images;
    try {
        images.restore(files);
    } catch (const RuntimeError&) {
        return std::string(kDefaultGlyphDirectory);
    }
    return images.GlyphDirectory();
}

}  // namespace

Exit printBlocks(const Arguments& given)
{
    Arguments arguments = given;
    const bool gardiner = takeSwitch(arguments, "--gardiner");
    const bool ring = takeSwitch(arguments, "--cartiglio");
    expectWords(arguments, 1, 1);
    Output output;
    output.line(manuelDeCodage(layoutFrom(arguments[0], gardiner, ring)));
    return Exit::Done;
}

Exit drawPhrase(const Arguments& given)
{
    Arguments arguments = given;
    const int height = heightFrom(takeOption(arguments, "--altezza"));
    const bool gardiner = takeSwitch(arguments, "--gardiner");
    const bool ring = takeSwitch(arguments, "--cartiglio");
    PlacementOptions options;
    options.rightToLeft = takeSwitch(arguments, "--da-destra");
    options.columns = takeSwitch(arguments, "--in-colonna");
    expectWords(arguments, 2, 2);
    const Layout layout = layoutFrom(arguments[0], gardiner, ring);
    const FileSystem files(Drives::ofUser());
    SignDrawings drawings(files, signDirectory(files));
    const Svg svg = svgOf(place(layout, options), height, manuelDeCodage(layout), drawings);
    try {
        files.replace(arguments[1], svg.text);
    } catch (const RuntimeError& error) {
        complain("Non si può scrivere " + arguments[1] + ": " + error.what());
        return Exit::Error;
    }
    if (!svg.asImages.empty()) {
        std::string codes;
        for (const std::string& code : svg.asImages) {
            codes += " " + code;
        }
        complain("Senza contorno, disegnati con la loro immagine:" + codes);
    }
    return Exit::Done;
}

}  // namespace karvel::cli
