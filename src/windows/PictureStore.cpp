#include "windows/PictureStore.hpp"

#include <QFile>
#include <QImageReader>
#include <algorithm>
#include <utility>

#include "base/RuntimeError.hpp"
#include "windows/Text.hpp"

namespace karvel {

namespace {

constexpr qsizetype kDecodedKilobytes = 8 * 1024;  // four pages of the palette
constexpr qsizetype kScaledKilobytes = 10 * 1024;
constexpr int kLargestSide = 8192;  // pixels; a picture beyond that is a mistake, and would eat the memory

qsizetype kilobytes(qsizetype bytes)
{
    return bytes / 1024 + 1;
}

}  // namespace

PictureStore::PictureStore(Drives drives)
    : drives_(std::move(drives)), images_(kDecodedKilobytes), scaled_(kScaledKilobytes)
{
}

QImage PictureStore::image(const std::string& systemPath)
{
    const QString key = qtext(systemPath);
    if (const QImage* const known = images_.object(key)) {
        return *known;
    }
    QString host;
    try {
        host = qtext(utf8Path(drives_.toHost(systemPath)));
    } catch (const RuntimeError&) {
        return {};
    }
    QFile file(host);
    // Sequential devices would be waited for.
    if (!file.open(QIODevice::ReadOnly) || file.isSequential()) {
        return {};
    }
    QImageReader reader(&file);
    const QSize size = reader.size();
    if (std::max(size.width(), size.height()) > kLargestSide) {
        return {};
    }
    QImage image = reader.read();
    if (!image.isNull()) {
        images_.insert(key, new QImage(image), kilobytes(image.sizeInBytes()));
    }
    return image;
}

bool PictureStore::canLoad(const std::string& systemPath)
{
    return !image(systemPath).isNull();
}

QPixmap PictureStore::scaled(const std::string& systemPath, int side, qreal ratio)
{
    const int pixels = qRound(side * ratio);
    if (pixels <= 0) {
        return {};
    }
    const QString key = qtext(systemPath) + QLatin1Char('|') + QString::number(pixels);
    if (const QPixmap* const known = scaled_.object(key)) {
        QPixmap pixmap = *known;
        pixmap.setDevicePixelRatio(ratio);
        return pixmap;
    }
    const QImage original = image(systemPath);
    if (original.isNull()) {
        return {};
    }
    QPixmap pixmap =
        QPixmap::fromImage(original.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                               .scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    scaled_.insert(key, new QPixmap(pixmap), kilobytes(qsizetype(4) * pixmap.width() * pixmap.height()));
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

}  // namespace karvel
