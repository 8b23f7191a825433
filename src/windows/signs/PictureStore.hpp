#pragma once

#include <QCache>
#include <QImage>
#include <QObject>
#include <QPixmap>
#include <QString>
#include <QThreadPool>
#include <atomic>
#include <memory>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/Pictures.hpp"
#include "files/Drives.hpp"
#include "windows/signs/Ahead.hpp"

class QPainter;

namespace karvel {

/// Decodes the images of the signs and scales them smoothly; keeps the ones used last.
class PictureStore : public Pictures {
  public:
    explicit PictureStore(Drives drives);
    ~PictureStore() override;
    PictureStore(const PictureStore&) = delete;
    PictureStore& operator=(const PictureStore&) = delete;

    /// Takes what has been decoded here, instead of decoding it. A null image is the store's to decode.
    void use(std::unique_ptr<Ahead<QImage>> ahead) { decodedAhead_ = std::move(ahead); }

    /// Decodes an image once; a sign that was good stays good, whatever happens to its file.
    bool canLoad(const std::string& systemPath) override;

    /// The image as it is in the file; null when it cannot be loaded.
    [[nodiscard]] QImage image(const std::string& systemPath);

    /// Draws the image around `centre`, scaled to fit `side` x `side` logical pixels. False when it cannot be
    /// loaded: nothing is drawn.
    bool draw(QPainter& painter, const std::string& systemPath, QPointF centre, int side);

    /// The image scaled to fit `side` x `side` logical pixels on a screen with `ratio` pixels to one of them;
    /// null when it cannot be loaded.
    [[nodiscard]] QPixmap scaled(const std::string& systemPath, int side, qreal ratio);

    /// Scales in the background, the first ones first, what will soon be drawn at this size, as far as there
    /// is room; an earlier call's remainder is given up. An image that cannot be loaded is passed over.
    void prepare(const std::vector<std::string>& systemPaths, int side, qreal ratio);

    /// Begins to scale, on another thread, what is about to be drawn at this size, the first ones first.
    void scaleAhead(const std::vector<std::string>& systemPaths, int side, qreal ratio);

    /// The scaled pictures that are kept now.
    [[nodiscard]] qsizetype kept() const { return scaled_.count(); }

  private:
    /// A scaled image without its transparent rim, which is half of a sign's square.
    struct Scaled {
        QPixmap pixmap;
        QPoint corner;  ///< of `pixmap` in the whole picture, in device pixels
        QSize whole;    ///< of the picture with its rim
    };
    struct Cropped;

    [[nodiscard]] static QString key(const std::string& systemPath, int pixels);
    [[nodiscard]] static Cropped scale(const QImage& original, int pixels);
    [[nodiscard]] QImage decoded(const std::string& systemPath);
    const Scaled* find(const std::string& systemPath, int pixels);
    void keep(const std::string& systemPath, int pixels, const Cropped& picture);
    void makeRoomFor(int pixels);

    Drives drives_;
    QCache<QString, QImage> images_;
    QCache<QString, Scaled> scaled_;
    std::unordered_set<std::string> good_;
    std::unique_ptr<Ahead<QImage>> decodedAhead_;  ///< neither is left once the first window stands
    std::unique_ptr<Ahead<Cropped>> scaledAhead_;
    int pixelsAhead_ = 0;              ///< for which they are scaled
    std::atomic<unsigned> round_ = 0;  ///< of preparing; an older one gives up
    QObject receiver_;  ///< results of the background arrive through it, on the thread of the windows
    QThreadPool background_;
};

}  // namespace karvel
