#include "windows/signs/PictureStore.hpp"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "base/SignCode.hpp"
#include "windows/signs/SignImage.hpp"
#include "windows/support/Text.hpp"

namespace karvel {

namespace {

constexpr qsizetype kPageKilobytes = 8 * 1024;    // decoded images at the start: one page
constexpr qsizetype kDecodedKilobytes = 256;      // decoded images later: those of the display line
constexpr qsizetype kScaledKilobytes = 8 * 1024;  // scaled images: all pages, at a usual screen's resolution
constexpr qsizetype kMostKilobytes = 40 * 1024;

qsizetype kilobytes(qsizetype bytes)
{
    return bytes / 1024 + 1;
}

/// The memory of a scaled sign without its transparent margin: a little more than half of its square.
qsizetype expectedBytes(int pixels)
{
    return qsizetype(4) * pixels * pixels * 6 / 10;
}

/// The part of `image` that is not wholly transparent.
QRect inked(const QImage& image)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        const auto* const line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        const auto visible = [](QRgb pixel) { return qAlpha(pixel) != 0; };
        const auto* const end = line + image.width();
        const auto* const first = std::find_if(line, end, visible);
        if (first != end) {
            const auto* last = end - 1;
            while (!visible(*last)) {
                --last;
            }
            area |=
                QRect(QPoint(static_cast<int>(first - line), y), QPoint(static_cast<int>(last - line), y));
        }
    }
    return area.isNull() ? QRect(0, 0, 1, 1) : area;
}

}  // namespace

struct PictureStore::Cropped {
    QImage image;
    QPoint corner;
    QSize whole;
};

PictureStore::PictureStore(Drives drives)
    : drives_(std::move(drives)), images_(kPageKilobytes), scaled_(kScaledKilobytes)
{
    background_.setMaxThreadCount(1);
    background_.setThreadPriority(QThread::LowPriority);
}

PictureStore::~PictureStore()
{
    ++round_;
    background_.waitForDone();
}

QString PictureStore::key(const std::string& systemPath, int pixels)
{
    return qtext(systemPath) + QLatin1Char('|') + QString::number(pixels);
}

PictureStore::Cropped PictureStore::scale(const QImage& original, int pixels)
{
    const QImage scaled = original.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                              .scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    const QRect area = inked(scaled);
    return {.image = scaled.copy(area), .corner = area.topLeft(), .whole = scaled.size()};
}

QImage PictureStore::image(const std::string& systemPath)
{
    const QImage found = decoded(systemPath);
    return found.isNull() ? found : found.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage PictureStore::decoded(const std::string& systemPath)
{
    const QString name = qtext(systemPath);
    if (const QImage* const known = images_.object(name)) {
        return *known;
    }
    QImage image = decodedImage(drives_, systemPath);
    if (!image.isNull()) {
        good_.insert(systemPath);
        images_.insert(name, new QImage(image), kilobytes(image.sizeInBytes()));
    }
    return image;
}

bool PictureStore::canLoad(const std::string& systemPath)
{
    return good_.contains(systemPath) || !decoded(systemPath).isNull();
}

void PictureStore::keep(const std::string& systemPath, int pixels, const Cropped& picture)
{
    good_.insert(systemPath);
    auto* const made = new Scaled{QPixmap::fromImage(picture.image), picture.corner, picture.whole};
    scaled_.insert(key(systemPath, pixels), made, kilobytes(picture.image.sizeInBytes()));
}

const PictureStore::Scaled* PictureStore::find(const std::string& systemPath, int pixels)
{
    if (pixels <= 0) {
        return nullptr;
    }
    if (const Scaled* const known = scaled_.object(key(systemPath, pixels))) {
        return known;
    }
    const QImage original = decoded(systemPath);
    if (original.isNull()) {
        return nullptr;
    }
    keep(systemPath, pixels, scale(original, pixels));
    return scaled_.object(key(systemPath, pixels));
}

bool PictureStore::draw(QPainter& painter, const std::string& systemPath, QPointF centre, int side)
{
    const qreal ratio = painter.device()->devicePixelRatioF();
    const Scaled* const picture = find(systemPath, qRound(side * ratio));
    if (picture == nullptr) {
        return false;
    }
    // At whole device pixels: between two of them the picture would be blurred.
    const QPointF corner = centre * ratio - QPointF(picture->whole.width(), picture->whole.height()) / 2;
    const QPointF whole = QPointF(corner.toPoint() + picture->corner) / ratio;
    painter.drawPixmap(QRectF(whole, QSizeF(picture->pixmap.size()) / ratio), picture->pixmap,
                       QRectF(picture->pixmap.rect()));
    return true;
}

QPixmap PictureStore::scaled(const std::string& systemPath, int side, qreal ratio)
{
    const Scaled* const picture = find(systemPath, qRound(side * ratio));
    if (picture == nullptr) {
        return {};
    }
    QPixmap whole(picture->whole);
    whole.fill(Qt::transparent);
    QPainter(&whole).drawPixmap(picture->corner, picture->pixmap);
    whole.setDevicePixelRatio(ratio);
    return whole;
}

/// At a high resolution the pictures are larger, so the cache may grow with them.
void PictureStore::enlargeCacheFor(int pixels)
{
    const qsizetype allPages = qsizetype(kPages * kKeys) * kilobytes(expectedBytes(pixels));
    scaled_.setMaxCost(std::clamp(allPages * 4 / 3, kScaledKilobytes, kMostKilobytes));
}

void PictureStore::prepare(const std::vector<std::string>& systemPaths, int side, qreal ratio)
{
    const unsigned round = ++round_;
    const int pixels = qRound(side * ratio);
    if (pixels <= 0) {
        return;
    }
    enlargeCacheFor(pixels);
    images_.setMaxCost(kDecodedKilobytes);
    qsizetype unused = scaled_.maxCost() * 9 / 10;
    std::vector<std::string> wanted;
    for (const std::string& path : systemPaths) {
        const Scaled* const known = scaled_.object(key(path, pixels));  // this also marks it as used
        unused -= known != nullptr ? kilobytes(qsizetype(4) * known->pixmap.width() * known->pixmap.height())
                                   : kilobytes(expectedBytes(pixels));
        if (unused < 0) {
            break;
        }
        if (known == nullptr && !path.empty()) {
            wanted.push_back(path);
        }
    }
    background_.start([this, wanted = std::move(wanted), pixels, round] {
        for (const std::string& path : wanted) {
            if (round_ != round) {
                return;
            }
            const QImage original = decodedImage(drives_, path);
            if (original.isNull()) {
                continue;
            }
            const auto arrived = [this, path, pixels, picture = scale(original, pixels)] {
                if (!scaled_.contains(key(path, pixels))) {
                    keep(path, pixels, picture);
                }
            };
            QMetaObject::invokeMethod(&receiver_, arrived, Qt::QueuedConnection);
        }
    });
}

}  // namespace karvel
