#include "writing/Svg.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "writing/Shapes.hpp"

namespace karvel {

namespace {

/// Appends text and numbers with at most one decimal.
class Writer {
  public:
    explicit Writer(std::string& text) : text_(text) {}

    Writer& operator<<(std::string_view text)
    {
        text_ += text;
        return *this;
    }

    Writer& operator<<(double number)
    {
        std::array<char, 32> digits{};
        const auto end =
            std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed, 1);
        std::string_view written(digits.data(), static_cast<std::size_t>(end.ptr - digits.data()));
        if (written.ends_with(".0")) {
            written.remove_suffix(2);
        }
        text_ += written;
        return *this;
    }

    Writer& operator<<(const Box& box)
    {
        return *this << " x=\"" << box.x << "\" y=\"" << box.y << "\" width=\"" << box.width << "\" height=\""
                     << box.height << '"';
    }

    Writer& operator<<(char character)
    {
        text_ += character;
        return *this;
    }

  private:
    std::string& text_;
};

std::string escaped(std::string_view text)
{
    std::string safe;
    for (const char each : text) {
        switch (each) {
            case '<':
                safe += "&lt;";
                break;
            case '>':
                safe += "&gt;";
                break;
            case '&':
                safe += "&amp;";
                break;
            default:
                safe += each;
        }
    }
    return safe;
}

std::string base64(std::string_view bytes)
{
    constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        std::uint32_t three = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            three = three << 8 | (at + i < bytes.size() ? static_cast<unsigned char>(bytes[at + i]) : 0U);
        }
        for (std::size_t i = 0; i < 4; ++i) {
            text += at + i <= bytes.size() ? kLetters[three >> (18 - 6 * i) & 63U] : '=';
        }
    }
    return text;
}

void writeOutline(const PlacedSign& sign, const std::vector<OutlineStep>& outline, Writer& svg)
{
    const SignShape shape = shapeOf(sign.code).value_or(SignShape{1000, 1000});
    const double scaleX = sign.box.width / shape.width;
    const double scaleY = sign.box.height / shape.height;
    const auto point = [&](int x, int y) {
        const double along = x * scaleX;
        svg << (sign.mirrored ? sign.box.x + sign.box.width - along : sign.box.x + along) << ' '
            << sign.box.y + sign.box.height - y * scaleY;
    };
    svg << "<path d=\"";
    for (const OutlineStep& step : outline) {
        switch (step.kind) {
            case OutlineStep::Kind::Move:
                svg << 'M';
                break;
            case OutlineStep::Kind::Line:
                svg << 'L';
                break;
            case OutlineStep::Kind::Curve:
                svg << 'Q';
                point(step.controlX, step.controlY);
                svg << ' ';
                break;
            case OutlineStep::Kind::Close:
                svg << 'Z';
                continue;
        }
        point(step.x, step.y);
    }
    svg << "\"/>\n";
}

/// The beginning of an element that is drawn into `box`, reflected if the sign is.
void beginInBox(std::string_view element, const PlacedSign& sign, Box box, Writer& svg)
{
    svg << '<' << element;
    if (sign.mirrored) {
        // Reflected in the vertical axis through x = 0; so is the box that it is drawn into.
        box.x = -box.x - box.width;
        svg << " transform=\"scale(-1 1)\"";
    }
    svg << box;
}

void writeShared(const PlacedSign& sign, const std::vector<OutlineStep>& outline, SharedOutlines& shared,
                 Writer& svg)
{
    if (shared.codes.insert(sign.code).second) {
        const SignShape shape = shapeOf(sign.code).value_or(SignShape{1000, 1000});
        const auto width = static_cast<double>(shape.width);
        const auto height = static_cast<double>(shape.height);
        Writer symbols(shared.symbols);
        symbols << "<symbol id=\"segno-" << sign.code << "\" viewBox=\"0 0 " << width << ' ' << height
                << "\" preserveAspectRatio=\"none\" overflow=\"visible\">";
        writeOutline({.code = sign.code, .box = {0, 0, width, height}}, outline, symbols);
        symbols << "</symbol>\n";
    }
    beginInBox("use", sign, sign.box, svg);
    svg << " href=\"#segno-" << sign.code << "\"/>\n";
}

void writeImage(const PlacedSign& sign, const SignDrawing& drawing, Writer& svg)
{
    beginInBox("image", sign, SignDrawings::imageBox(drawing, sign.box), svg);
    svg << " href=\"data:image/gif;base64," << base64(drawing.image) << "\"/>\n";
}

struct Letter {
    char letter;
    std::string_view strokes;  ///< from point to point of a grid of three by three, numbered row by row
};

constexpr std::array kLetters = {
    Letter{'0', "02860"},    Letter{'1', "17"},     Letter{'2', "025368"},   Letter{'3', "02586 35"},
    Letter{'4', "035 28"},   Letter{'5', "203586"}, Letter{'6', "206853"},   Letter{'7', "027"},
    Letter{'8', "02860 35"}, Letter{'9', "530286"}, Letter{'a', "6028 35"},  Letter{'b', "06853"},
    Letter{'c', "2068"},     Letter{'d', "28635"},  Letter{'e', "2068 35"},  Letter{'f', "206 35"},
    Letter{'g', "206854"},   Letter{'h', "06 358"}, Letter{'i', "02 17 68"}, Letter{'l', "068"},
    Letter{'m', "60428"},    Letter{'n', "6082"},   Letter{'o', "35863"},    Letter{'p', "60253"}};

constexpr std::string_view kPen = " fill=\"none\" stroke=\"#000\" stroke-width=\"22\"";

/// A dashed box; the code in it is drawn with strokes, because a picture that names a font looks different
/// where that is missing.
void writeUnknown(const PlacedSign& sign, Writer& svg)
{
    const Box& box = sign.box;
    svg << "<rect" << box << kPen << " stroke-dasharray=\"60 45\"/>\n<path d=\"";
    // A letter takes two steps and a third before the next one; it is three steps high.
    const auto letters = static_cast<double>(sign.code.size());
    const double step = std::min({70.0, box.width / (3 * letters + 1), box.height / 5});
    double x = box.x + box.width / 2 - step * (1.5 * letters - 0.5);
    const double y = box.y + box.height / 2 - 1.5 * step;
    for (const char each : sign.code) {
        const auto found = std::ranges::find(kLetters, each, &Letter::letter);
        char before = ' ';
        for (const char point : found == kLetters.end() ? std::string_view() : found->strokes) {
            if (point != ' ') {
                const int row = (point - '0') / 3;
                const int column = (point - '0') % 3;
                svg << (before == ' ' ? 'M' : 'L') << x + step * column << ' ' << y + 1.5 * step * row;
            }
            before = point;
        }
        x += 3 * step;
    }
    svg << '"' << kPen << "/>\n";
}

void writeRing(const PlacedRing& ring, Writer& svg)
{
    svg << "<rect" << ring.frame << " rx=\"" << ring.radius << "\" ry=\"" << ring.radius
        << "\" fill=\"none\" stroke=\"#000\" stroke-width=\"" << ring.thickness << "\"/>\n<rect" << ring.bar
        << "/>\n";
}

}  // namespace

Svg svgOf(const Placement& placement, double blockPixels, std::string_view title, SignDrawings& drawings,
          SharedOutlines* shared)
{
    Svg made;
    Writer svg(made.text);
    const double width = placement.width + 2 * kPictureMargin;
    const double height = placement.height + 2 * kPictureMargin;
    const double scale = blockPixels / kBlockHeight;
    svg << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width * scale << "\" height=\""
        << height * scale << "\" viewBox=\"" << -kPictureMargin << ' ' << -kPictureMargin << ' ' << width
        << ' ' << height << "\">\n<title>" << escaped(title) << "</title>\n";
    for (const PlacedSign& sign : placement.signs) {
        const SignDrawing& drawing = drawings.of(sign.code);
        if (sign.drawn && drawing.outline && shared != nullptr) {
            writeShared(sign, *drawing.outline, *shared, svg);
        } else if (sign.drawn && drawing.outline) {
            writeOutline(sign, *drawing.outline, svg);
        } else if (sign.drawn && !drawing.image.empty()) {
            writeImage(sign, drawing, svg);
            if (!drawing.ownImage && std::ranges::find(made.asImages, sign.code) == made.asImages.end()) {
                made.asImages.push_back(sign.code);
            }
        } else {
            writeUnknown(sign, svg);
        }
    }
    for (const PlacedRing& ring : placement.rings) {
        writeRing(ring, svg);
    }
    svg << "</svg>\n";
    return made;
}

}  // namespace karvel
