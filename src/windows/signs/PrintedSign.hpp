#pragma once

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QRectF>
#include <string>

class QPainter;

namespace karvel {

class Desktop;

/// `image` on `ground`, for paper: a printer would draw a half transparent edge as a dark rim. It is smoothly
/// reduced when it has more pixels than the device shows in `devicePixels`.
[[nodiscard]] QImage onGround(const QImage& image, const QColor& ground, QSizeF devicePixels);

/// A sign as it is printed, in a square that its image would fill: its outline, which is sharp on every
/// device, or else its image on the colour of the paper. `SignDrawings` chooses between them.
class PrintedSign {
  public:
    /// An empty sign: nothing is painted.
    PrintedSign() = default;

    /// `path` is that of the image, in the system's form; `square` is in the unit of `painter`, whose device
    /// it will be painted on.
    PrintedSign(Desktop& desktop, const std::string& code, const std::string& path, const QRectF& square,
                const QPainter& painter, const QColor& paper);

    [[nodiscard]] bool isEmpty() const { return outline_.isEmpty() && image_.isNull(); }
    /// The left edge of the sign's ink.
    [[nodiscard]] qreal left() const { return left_; }

    /// Paints the sign, moved to the right by `shift`. The painter's state stays.
    void paint(QPainter& painter, const QColor& ink, qreal shift = 0) const;

  private:
    QPainterPath outline_;
    QImage image_;
    QRectF place_;  ///< of the image
    qreal left_ = 0;
};

}  // namespace karvel
