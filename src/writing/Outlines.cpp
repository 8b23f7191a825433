#include "writing/Outlines.hpp"

#include "base/SignCode.hpp"

namespace karvel {

namespace {

constexpr std::string_view kMagic = "KarvSegn";
constexpr std::size_t kHeader = kMagic.size() + 2;
constexpr std::size_t kIndexEntry = kCodeLength + 4;

std::size_t littleEndian(std::string_view bytes)
{
    std::size_t number = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) {
        number = number << 8 | static_cast<unsigned char>(bytes[i]);
    }
    return number;
}

/// Where the outline of `code` begins; 0 when the index does not say.
std::size_t offsetOf(std::string_view file, std::string_view code)
{
    if (file.size() < kHeader || !file.starts_with(kMagic)) {
        return 0;
    }
    std::size_t low = 0;
    std::size_t high = littleEndian(file.substr(kMagic.size(), 2));
    if (file.size() < kHeader + high * kIndexEntry) {
        return 0;
    }
    while (low < high) {
        const std::size_t middle = (low + high) / 2;
        const std::string_view entry = file.substr(kHeader + middle * kIndexEntry, kIndexEntry);
        const int order = entry.substr(0, kCodeLength).compare(code);
        if (order == 0) {
            return littleEndian(entry.substr(kCodeLength));
        }
        (order < 0 ? low : high) = order < 0 ? middle + 1 : middle;
    }
    return 0;
}

/// Reads the coordinates of one outline, each the difference to the one before.
class Coordinates {
  public:
    explicit Coordinates(std::string_view bytes) : bytes_(bytes) {}

    /// The next byte; 0, the end of an outline, when none is left.
    char letter()
    {
        if (bytes_.empty()) {
            failed = true;
            return 0;
        }
        const char first = bytes_.front();
        bytes_.remove_prefix(1);
        return first;
    }

    void point(int& x, int& y)
    {
        x = x_ += difference();
        y = y_ += difference();
    }

    bool failed = false;

  private:
    int difference()
    {
        constexpr int kFurthest = 100'000;
        unsigned packed = 0;
        for (unsigned shift = 0; shift < 21; shift += 7) {
            const auto byte = static_cast<unsigned char>(letter());
            packed |= (byte & 127U) << shift;
            if (byte < 128) {
                const int half = static_cast<int>(packed >> 1);
                const int value = (packed & 1U) != 0 ? -half - 1 : half;
                failed = failed || x_ + value > kFurthest || x_ + value < -kFurthest ||
                         y_ + value > kFurthest || y_ + value < -kFurthest;
                return failed ? 0 : value;
            }
        }
        failed = true;
        return 0;
    }

    std::string_view bytes_;
    int x_ = 0;
    int y_ = 0;
};

}  // namespace

Outlines Outlines::installed(const FileSystem& files)
{
    try {
        return Outlines(files.readAll(kOutlinesPath));
    } catch (const RuntimeError&) {
        return {};
    }
}

std::optional<std::vector<OutlineStep>> Outlines::of(std::string_view code) const
{
    const std::size_t offset = offsetOf(file_, code);
    if (offset == 0 || offset >= file_.size()) {
        return std::nullopt;
    }
    Coordinates from(std::string_view(file_).substr(offset));
    std::vector<OutlineStep> steps;
    for (char letter = from.letter(); letter != 0; letter = from.letter()) {
        OutlineStep step;
        switch (letter) {
            case 'M':
                step.kind = OutlineStep::Kind::Move;
                break;
            case 'L':
                step.kind = OutlineStep::Kind::Line;
                break;
            case 'Q':
                step.kind = OutlineStep::Kind::Curve;
                from.point(step.controlX, step.controlY);
                break;
            case 'Z':
                break;
            default:
                return std::nullopt;
        }
        if (step.kind != OutlineStep::Kind::Close) {
            from.point(step.x, step.y);
        }
        steps.push_back(step);
    }
    return from.failed || steps.empty() ? std::nullopt : std::optional(std::move(steps));
}

}  // namespace karvel
