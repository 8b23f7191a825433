#include "windows/signs/SignImage.hpp"

#include <QFile>
#include <QImageReader>
#include <algorithm>
#include <optional>
#include <vector>

#include "base/RuntimeError.hpp"
#include "files/HostFile.hpp"
#include "windows/signs/GifImage.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

constexpr int kLargestSide = 8192;  // pixels; a picture beyond that is a mistake, and would eat the memory
constexpr std::size_t kLargestUsual = std::size_t{64} * 1024;  // bytes of a file; a sign has three thousand

/// With a byte for a pixel: a quarter of what the screen needs, for as long as it is not drawn.
QImage imageOf(const GifImage& gif)
{
    QImage image(static_cast<int>(gif.width), static_cast<int>(gif.height), QImage::Format_Indexed8);
    image.setColorTable(QList<QRgb>(gif.colours.begin(), gif.colours.end()));
    for (std::size_t row = 0; row < gif.height && !image.isNull(); ++row) {
        std::copy_n(&gif.pixels[row * gif.width], gif.width, image.scanLine(static_cast<int>(row)));
    }
    return image;
}

/// Throws RuntimeError when the file cannot be read.
QImage usualImageAt(const std::filesystem::path& host)
{
    HostFile file(host, HostFile::Mode::Read);
    if (file.size() > kLargestUsual) {
        return {};
    }
    std::vector<char> bytes(static_cast<std::size_t>(file.size()));
    const std::size_t count = file.read(bytes);
    const std::optional<GifImage> gif = readGif({bytes.data(), count});
    return gif ? imageOf(*gif) : QImage();
}

QImage anyImageAt(const std::filesystem::path& host)
{
    QFile file(qtext(utf8Path(host)));
    // Sequential devices would be waited for.
    if (!file.open(QIODevice::ReadOnly) || file.isSequential()) {
        return {};
    }
    QImageReader reader(&file);
    const QSize size = reader.size();
    if (std::max(size.width(), size.height()) > kLargestSide) {
        return {};
    }
    const QImage image = reader.read();
    return image.isNull() ? image : image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace

QImage decodedImage(const Drives& drives, const std::string& systemPath)
{
    try {
        const std::filesystem::path host = drives.toHost(systemPath);
        const QImage usual = usualImageAt(host);
        return usual.isNull() ? anyImageAt(host) : usual;
    } catch (const RuntimeError&) {
        return {};
    }
}

QImage usualImage(const Drives& drives, const std::string& systemPath)
{
    try {
        return usualImageAt(drives.toHost(systemPath));
    } catch (const RuntimeError&) {
        return {};
    }
}

}  // namespace karvel
