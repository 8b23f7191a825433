#include "windows/signs/SignImage.hpp"

#include <QFile>
#include <QImageReader>
#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "base/RuntimeError.hpp"
#include "files/HostFile.hpp"
#include "windows/signs/GifImage.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

constexpr int kLargestSide = 8192;  // pixels; a larger image would take too much memory
constexpr std::size_t kLargestSignFile = std::size_t{64} * 1024;  // bytes; a usual sign has three thousand

/// The image with one byte for each pixel: a quarter of the memory that the screen's form takes.
QImage imageOf(const GifImage& gif)
{
    QImage image(static_cast<int>(gif.width), static_cast<int>(gif.height), QImage::Format_Indexed8);
    image.setColorTable(QList<QRgb>(gif.colours.begin(), gif.colours.end()));
    for (std::size_t row = 0; row < gif.height && !image.isNull(); ++row) {
        std::copy_n(&gif.pixels[row * gif.width], gif.width, image.scanLine(static_cast<int>(row)));
    }
    return image;
}

/// Reads a sign with the program's own reader; null for an image of any other form. Throws RuntimeError when
/// the file cannot be read.
QImage signAt(const std::filesystem::path& host)
{
    HostFile file(host, HostFile::Mode::Read);
    if (file.size() > kLargestSignFile) {
        return {};
    }
    std::vector<char> bytes(static_cast<std::size_t>(file.size()));
    const std::size_t count = file.read(bytes);
    const std::optional<GifImage> gif = readGif({bytes.data(), count});
    return gif ? imageOf(*gif) : QImage();
}

/// Reads an image with the toolkit.
QImage anyImageAt(const std::filesystem::path& host)
{
    QFile file(qtext(utf8Path(host)));
    // Reading a sequential device (a pipe) could wait for ever.
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

/// Whether Windows could take the path for one of a network. It reads / and \ alike, and passes what follows
/// \??\ on as it is.
bool isOnAnotherComputer(std::string_view path)
{
    const auto separator = [](char c) { return c == '/' || c == '\\'; };
    return path.size() > 1 && separator(path[0]) && (separator(path[1]) || path[1] == '?');
}

}  // namespace

QImage decodedImage(const Drives& drives, const std::string& systemPath)
{
    // A file from another person may name a picture on another computer: the program does not contact it.
    if (isOnAnotherComputer(systemPath)) {
        return {};
    }
    try {
        const std::filesystem::path host = drives.toHost(systemPath);
        const QImage sign = signAt(host);
        return sign.isNull() ? anyImageAt(host) : sign;
    } catch (const RuntimeError&) {
        return {};
    }
}

}  // namespace karvel
