#include "windows/signs/GifImage.hpp"

#include <algorithm>
#include <array>
#include <string>

namespace karvel {

namespace {

constexpr std::size_t kMostPixels = std::size_t{1} << 22;
constexpr int kNoColour = -1;

/// Reads the file from front to back. Behind its end it returns zeros and sets `overrun`.
class Bytes {
  public:
    explicit Bytes(std::string_view rest) : rest_(rest) {}

    [[nodiscard]] bool overrun() const { return overrun_; }

    std::string_view take(std::size_t count)
    {
        if (count > rest_.size()) {
            overrun_ = true;
            rest_ = {};
            return {};
        }
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(count);
        return taken;
    }

    unsigned byte()
    {
        const std::string_view one = take(1);
        return one.empty() ? 0 : static_cast<unsigned char>(one[0]);
    }

    unsigned word()
    {
        const unsigned low = byte();
        return low | byte() << 8;
    }

    /// The joined content of data blocks: each has its length first, and an empty one ends them.
    std::string chain()
    {
        std::string joined;
        for (unsigned length = byte(); length > 0; length = byte()) {
            joined += take(length);
        }
        return joined;
    }

  private:
    std::string_view rest_;
    bool overrun_ = false;
};

/// Reads codes of a growing number of bits, the lowest bits first.
class Codes {
  public:
    explicit Codes(std::string_view data) : data_(data) {}

    /// The next code of `width` bits; `end` when there are no more.
    unsigned next(unsigned width, unsigned end)
    {
        while (held_ < width) {
            if (at_ == data_.size()) {
                return end;
            }
            bits_ |= static_cast<unsigned>(static_cast<unsigned char>(data_[at_++])) << held_;
            held_ += 8;
        }
        const unsigned code = bits_ & ((1U << width) - 1);
        bits_ >>= width;
        held_ -= width;
        return code;
    }

    [[nodiscard]] bool exhausted() const { return at_ == data_.size(); }

  private:
    std::string_view data_;
    std::size_t at_ = 0;
    unsigned bits_ = 0;
    unsigned held_ = 0;
};

/// Decodes `data` into `pixels` (LZW). False when the result has more or fewer pixels, a colour number not
/// below `colours`, or a code that is not defined yet.
bool unpack(std::string_view data, unsigned codeSize, std::size_t colours, std::vector<unsigned char>& pixels)
{
    constexpr unsigned kLargestWidth = 12;
    constexpr unsigned kMostCodes = 1U << kLargestWidth;
    // A code stands for pixels that were written before: for each code, where they begin and how many.
    struct Run {
        std::size_t start;
        std::size_t length;
    };
    std::array<Run, kMostCodes> runs{};
    const unsigned clear = 1U << codeSize;
    const unsigned end = clear + 1;
    Codes codes(data);
    unsigned width = codeSize + 1;
    unsigned free = end + 1;
    Run before{0, 0};
    std::size_t written = 0;
    for (unsigned code = codes.next(width, kMostCodes); code != end; code = codes.next(width, kMostCodes)) {
        if (code == clear) {
            width = codeSize + 1;
            free = end + 1;
            before = {0, 0};
            continue;
        }
        // A new code: the previous run and the pixel behind it, which this code is about to write.
        const bool added = before.length > 0 && free < kMostCodes;
        if (added) {
            runs[free++] = {before.start, before.length + 1};
        }
        const bool single = code < clear;
        if (code >= free || (single && code >= colours)) {
            return false;
        }
        const Run run = single ? Run{written, 1} : runs[code];
        if (run.length > pixels.size() - written) {
            return false;
        }
        if (single) {
            pixels[written] = static_cast<unsigned char>(code);
        } else {
            for (std::size_t i = 0; i < run.length; ++i) {
                pixels[written + i] = pixels[run.start + i];  // the two ranges may overlap
            }
        }
        before = {written, run.length};
        written += run.length;
        if (added && free == 1U << width && width < kLargestWidth) {
            ++width;
        }
    }
    return written == pixels.size() && codes.exhausted();
}

/// The rows of an interlaced picture in their order. It is stored in four passes; each fills the middle of
/// the gaps that the passes before have left.
std::vector<unsigned char> inOrder(const std::vector<unsigned char>& interlaced, std::size_t width)
{
    struct Pass {
        std::size_t first;
        std::size_t step;
    };
    std::vector<unsigned char> ordered(interlaced.size());
    auto row = interlaced.begin();
    for (const Pass pass : {Pass{0, 8}, Pass{4, 8}, Pass{2, 4}, Pass{1, 2}}) {
        for (std::size_t at = pass.first * width; at < ordered.size(); at += pass.step * width) {
            std::copy_n(row, width, ordered.begin() + static_cast<std::ptrdiff_t>(at));
            row += static_cast<std::ptrdiff_t>(width);
        }
    }
    return ordered;
}

std::vector<std::uint32_t> readPalette(Bytes& bytes, unsigned flags)
{
    std::vector<std::uint32_t> colours(std::size_t{2} << (flags & 7U));
    for (std::uint32_t& colour : colours) {
        const unsigned red = bytes.byte();
        const unsigned green = bytes.byte();
        colour = 0xFF000000U | red << 16 | green << 8 | bytes.byte();
    }
    return colours;
}

/// Reads the extension blocks before the picture. Returns the number of the transparent colour, `kNoColour`
/// for none; nothing when no picture follows.
std::optional<int> readExtensions(Bytes& bytes)
{
    constexpr unsigned kExtension = 0x21;
    constexpr unsigned kPicture = 0x2C;
    constexpr unsigned kControl = 0xF9;
    int transparent = kNoColour;
    unsigned introducer = bytes.byte();
    for (; introducer == kExtension; introducer = bytes.byte()) {
        const bool control = bytes.byte() == kControl;
        const std::string content = bytes.chain();
        if (control && content.size() != 4) {
            return std::nullopt;
        }
        if (control) {
            transparent = (content[0] & 1) != 0 ? static_cast<unsigned char>(content[3]) : kNoColour;
        }
    }
    return introducer == kPicture ? std::optional(transparent) : std::nullopt;
}

}  // namespace

std::optional<GifImage> readGif(std::string_view file)
{
    constexpr unsigned kPalette = 0x80;
    constexpr unsigned kInterlaced = 0x40;
    Bytes bytes(file);
    const std::string_view signature = bytes.take(6);
    if (signature != "GIF89a" && signature != "GIF87a") {
        return std::nullopt;
    }
    GifImage image;
    image.width = bytes.word();
    image.height = bytes.word();
    const unsigned flags = bytes.byte();
    bytes.take(2);  // background colour and pixel shape: the picture covers all, pixels are square
    const std::size_t area = image.width * image.height;
    if ((flags & kPalette) == 0 || area == 0 || area > kMostPixels) {
        return std::nullopt;
    }
    image.colours = readPalette(bytes, flags);
    const std::optional<int> transparent = readExtensions(bytes);
    const bool atCorner = (bytes.word() | bytes.word()) == 0;
    const bool wholeWidth = bytes.word() == image.width;
    const bool wholeHeight = bytes.word() == image.height;
    const unsigned pictureFlags = bytes.byte();
    const unsigned codeSize = bytes.byte();
    const std::string data = bytes.chain();
    if (!transparent || !atCorner || !wholeWidth || !wholeHeight || (pictureFlags & kPalette) != 0 ||
        codeSize < 2 || codeSize > 8 || bytes.byte() != ';' || bytes.overrun()) {
        return std::nullopt;
    }
    image.pixels.resize(area);
    if (!unpack(data, codeSize, image.colours.size(), image.pixels)) {
        return std::nullopt;
    }
    if ((pictureFlags & kInterlaced) != 0) {
        image.pixels = inOrder(image.pixels, image.width);
    }
    if (*transparent >= 0 && static_cast<std::size_t>(*transparent) < image.colours.size()) {
        image.colours[static_cast<std::size_t>(*transparent)] = 0;
    }
    return image;
}

}  // namespace karvel
