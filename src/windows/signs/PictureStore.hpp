#pragma once

#include <QCache>
#include <QImage>
#include <QObject>
#include <QPixmap>
#include <QString>
#include <QThreadPool>
#include <atomic>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/Pictures.hpp"
#include "files/Drives.hpp"

class QPainter;

namespace karvel {

/// Decodes the images of the signs and scales them smoothly; keeps the ones used last.
class PictureStore : public Pictures {
  public:
    explicit PictureStore(Drives drives);
    ~PictureStore() override;
    PictureStore(const PictureStore&) = delete;
    PictureStore& operator=(const PictureStore&) = delete;

    /// Decodes an image once. An image that was loaded stays loadable, whatever happens to its file.
    bool canLoad(const std::string& systemPath) override;

    /// The image as it is in the file; null when it cannot be loaded.
    [[nodiscard]] QImage image(const std::string& systemPath);

    /// Draws the image around `centre`, scaled to fit `side` x `side` logical pixels. False when it cannot be
    /// loaded: nothing is drawn.
    bool draw(QPainter& painter, const std::string& systemPath, QPointF centre, int side);

    /// The image scaled to fit `side` x `side` logical pixels on a screen with `ratio` pixels to one of them;
    /// null when it cannot be loaded.
    [[nodiscard]] QPixmap scaled(const std::string& systemPath, int side, qreal ratio);

    /// Scales images in the background, in this order, until the cache is full: they will soon be drawn at
    /// this size. A new call stops the work of an earlier one. An image that cannot be loaded is left out.
    void prepare(const std::vector<std::string>& systemPaths, int side, qreal ratio);

    /// The number of scaled pictures in the cache.
    [[nodiscard]] qsizetype kept() const { return scaled_.count(); }

  private:
    /// A scaled image without its transparent margin, which is half of a sign's square.
    struct Scaled {
        QPixmap pixmap;
        QPoint corner;  ///< of `pixmap` in the whole picture, in device pixels
        QSize whole;    ///< of the picture with its margin
    };
    struct Cropped;

    [[nodiscard]] static QString key(const std::string& systemPath, int pixels);
    [[nodiscard]] static Cropped scale(const QImage& original, int pixels);
    [[nodiscard]] QImage decoded(const std::string& systemPath);
    const Scaled* find(const std::string& systemPath, int pixels);
    void keep(const std::string& systemPath, int pixels, const Cropped& picture);
    void enlargeCacheFor(int pixels);

    Drives drives_;
    QCache<QString, QImage> images_;
    QCache<QString, Scaled> scaled_;
    std::unordered_set<std::string> good_;
    std::atomic<unsigned> round_ = 0;  ///< the number of `prepare` calls; the work of an older one stops
    QObject receiver_;                 ///< receives the results of the background thread on the main thread
    QThreadPool background_;
};

}  // namespace karvel
