#pragma once

#include <QCache>
#include <QColor>
#include <QObject>
#include <QRectF>
#include <memory>
#include <string>
#include <vector>

#include "writing/Placement.hpp"
#include "writing/SignDrawings.hpp"

class QPainter;
class QPainterPath;

namespace karvel {

class Desktop;
class Session;

/// How a phrase is drawn in blocks.
struct PhraseLook {
    bool ring = false;             ///< in a cartouche
    bool inRow = false;            ///< each sign a block of its own
    PlacementOptions placement{};  ///< `length` in the unit of a placement
    QColor ink = Qt::black;        ///< of outlines and rings; images keep their own colours
};

/// The outline as a path, in thousandths of the font's em, y going up.
[[nodiscard]] QPainterPath outlinePath(const std::vector<OutlineStep>& outline);

/// Draws phrases in blocks on any paint device. Signs are drawn from their outlines, else from their images;
/// a sign without both is a dashed box with its code. All windows share one.
class LayoutPainter : public QObject {
    Q_OBJECT

  public:
    /// The one that belongs to `desktop` and lives as long.
    [[nodiscard]] static LayoutPainter& of(Desktop& desktop);

    /// The phrase in blocks, in a cartouche if the look has one. The groups are the user's own while `codes`
    /// is the phrase that the user has grouped.
    [[nodiscard]] Layout layoutOf(const std::string& codes, const PhraseLook& look) const;

    /// That layout with places. Placements are cached; the pointer shares one.
    [[nodiscard]] std::shared_ptr<const Placement> placementOf(const std::string& codes,
                                                               const PhraseLook& look);

    /// Paints with vectors, the upper left corner of the placement at `corner`, blocks `blockHeight` high in
    /// the painter's unit. Nothing is cached: for printing and for files. Where `paper` is valid, images are
    /// put on this colour, as printers need it.
    void paint(QPainter& painter, const Placement& placement, QPointF corner, qreal blockHeight,
               const QColor& ink, const QColor& paper = {});

    /// Paints the phrase with blocks `blockHeight` logical pixels high. What was painted before in the same
    /// look is taken from the toolkit's cache of pixmaps, unless the device is no screen or image.
    void paintCached(QPainter& painter, const std::string& codes, const PhraseLook& look, QPointF corner,
                     qreal blockHeight);

    /// What there is to draw signs with, of the directory that is set now.
    [[nodiscard]] SignDrawings& drawings();

  private:
    explicit LayoutPainter(Desktop& desktop);
    void paintSign(QPainter& painter, const PlacedSign& sign, const QColor& ink, const QColor& paper);

    Session& session_;       ///< the user's directory of sign images is taken from it
    std::string directory_;  ///< that `drawings_` reads
    std::unique_ptr<SignDrawings> drawings_;
    QCache<QString, std::shared_ptr<const Placement>> placements_;
};

/// The size of the phrase with blocks `blockHeight` high, with the margin that `paintPhrase` leaves.
[[nodiscard]] QSizeF phraseSize(const std::string& codes, qreal blockHeight, const PhraseLook& look,
                                Desktop& desktop);

/// Paints the phrase into `area`, vertically in the middle, at the left, or at the right when it is read from
/// there. Blocks are `blockHeight` high, or lower where the phrase would not fit. Lengths are in the
/// painter's unit, on screens logical pixels. Returns what the phrase covers of `area`. The painter's state
/// stays. For the row of a list: paintPhrase(painter, option.rect, codes, 32, {.ink = ink}, desktop).
QRectF paintPhrase(QPainter& painter, const QRectF& area, const std::string& codes, qreal blockHeight,
                   const PhraseLook& look, Desktop& desktop);

}  // namespace karvel
