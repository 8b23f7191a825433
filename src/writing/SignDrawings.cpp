#include "writing/SignDrawings.hpp"

#include <algorithm>
#include <cmath>

#include "base/SignCode.hpp"
#include "text/CodePage.hpp"

namespace karvel {

namespace {

constexpr std::string_view kInstalledImages = "C:\\programmi\\Karvel\\GR";
constexpr std::size_t kLargestImage = std::size_t{1} << 22;

}  // namespace

SignDrawings::SignDrawings(const FileSystem& files, std::string directory)
    : files_(files), directory_(std::move(directory))
{
}

std::string SignDrawings::imageIn(std::string_view directory, const std::string& code) const
{
    try {
        return files_.readAll(std::string(directory) + "\\" + code + ".gif", kLargestImage);
    } catch (const RuntimeError&) {
        return {};
    }
}

SignDrawing SignDrawings::read(const std::string& code)
{
    SignDrawing drawing;
    if (!isSignCode(code) || code == kMissingSign) {
        return drawing;
    }
    if (upperCase(directory_) != upperCase(kInstalledImages)) {
        drawing.image = imageIn(directory_, code);
        drawing.ownImage = !drawing.image.empty() && drawing.image != imageIn(kInstalledImages, code);
        if (drawing.ownImage) {
            return drawing;
        }
    }
    if (!outlines_) {
        outlines_ = Outlines::installed(files_);
    }
    drawing.outline = outlines_->of(code);
    if (drawing.outline) {
        drawing.image.clear();
    } else if (drawing.image.empty()) {
        drawing.image = imageIn(kInstalledImages, code);
    }
    return drawing;
}

const SignDrawing& SignDrawings::of(std::string_view code)
{
    const auto [at, isNew] = read_.try_emplace(std::string(code));
    if (isNew) {
        at->second = read(at->first);
    }
    return at->second;
}

Box SignDrawings::imageBox(const SignDrawing& drawing, const Box& box)
{
    if (drawing.ownImage) {
        return box;
    }
    // As tools/make-signs draws them: the longer side of the ink takes 0.94 of the square, and small signs
    // are enlarged in part.
    const double longer = std::max(box.width, box.height);
    const double side = longer / (0.94 * std::pow(std::min(longer / 1100, 1.0), 0.7));
    return {box.x + (box.width - side) / 2, box.y + (box.height - side) / 2, side, side};
}

}  // namespace karvel
