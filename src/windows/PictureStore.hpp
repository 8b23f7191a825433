#pragma once

#include <QCache>
#include <QImage>
#include <QPixmap>
#include <QString>

#include "base/Drives.hpp"
#include "base/Pictures.hpp"

namespace karvel {

/// Decodes the images of the signs and scales them smoothly; keeps the ones used last.
class PictureStore : public Pictures {
  public:
    explicit PictureStore(Drives drives);

    bool canLoad(const std::string& systemPath) override;

    /// The image as it is in the file; null when it cannot be loaded.
    [[nodiscard]] QImage image(const std::string& systemPath);

    /// The image scaled to fit `side` x `side` logical pixels on a screen with `ratio` pixels to one of them;
    /// null when it cannot be loaded.
    [[nodiscard]] QPixmap scaled(const std::string& systemPath, int side, qreal ratio);

  private:
    Drives drives_;
    QCache<QString, QImage> images_;
    QCache<QString, QPixmap> scaled_;
};

}  // namespace karvel
