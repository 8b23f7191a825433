#include "settings/Colours.hpp"

#include <cmath>

#include "text/FieldWriter.hpp"

namespace karvel {

namespace {

/// The share of light that a channel gives, 0 to 1.
double light(int channel)
{
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

}  // namespace

bool Colour::wantsDarkText() const
{
    const double luminance = 0.2126 * light(red()) + 0.7152 * light(green()) + 0.0722 * light(blue());
    // At this luminance L black and white contrast alike: (L + 0.05) / 0.05 = 1.05 / (L + 0.05).
    constexpr double kEqualContrast = 0.1791;
    return luminance > kEqualContrast;
}

Colour readColour(const FileSystem& files, std::string_view path)
{
    const auto source = files.open(path);
    FieldReader fields(*source);
    return {fields.number<std::int32_t>()};
}

void writeColour(const FileSystem& files, std::string_view path, Colour colour)
{
    files.replace(path, numberLine(colour.packed));
}

Colours readColours(const FileSystem& files)
{
    return {.display = readColour(files, kDisplayColourPath), .window = readColour(files, kWindowColourPath)};
}

void applyDisplayColour(const FileSystem& files, Colours& colours, Colour chosen)
{
    colours.display = chosen;
    writeColour(files, kDisplayColourPath, chosen);
}

void applyWindowColour(const FileSystem& files, Colours& colours, Colour chosen)
{
    colours.window = chosen;
    writeColour(files, kWindowColourPath, chosen);
}

}  // namespace karvel
