#include "windows/signs/LayoutPainter.hpp"

#include <QImage>
#include <QPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPixmapCache>
#include <algorithm>
#include <cmath>

#include "app/PhraseClipboard.hpp"
#include "base/SignCode.hpp"
#include "windows/signs/PrintedSign.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Text.hpp"
#include "writing/ManuelDeCodage.hpp"
#include "writing/Shapes.hpp"
#include "writing/Svg.hpp"

namespace karvel {

namespace {

constexpr int kPlacements = 2000;         // those of the longest lists that are shown
constexpr qreal kFewestPixels = 4;        // of a block; below this nothing can be recognised
constexpr qreal kMostPixels = 4'000'000;  // of a cached picture; a larger one is painted each time

QString keyOf(const Session& session, const std::string& codes, const PhraseLook& look)
{
    const Layout* const own = session.arrangement().of(codes);
    return QStringLiteral("%1|%2%3%4%5|%6")
        .arg(qtext(own == nullptr ? codes : manuelDeCodage(*own)))
        .arg(look.inRow)
        .arg(look.ring)
        .arg(look.placement.rightToLeft)
        .arg(look.placement.columns)
        .arg(look.placement.length);
}

Layout rowOf(std::string_view codes)
{
    Layout layout;
    for (const std::string_view code : splitCodes(codes)) {
        layout.blocks.push_back(Group::sign(code));
    }
    return layout;
}

QRectF rectOf(const Box& box)
{
    return {box.x, box.y, box.width, box.height};
}

void paintOutline(QPainter& painter, const PlacedSign& sign, const std::vector<OutlineStep>& outline,
                  const QColor& ink)
{
    const SignShape shape = shapeOf(sign.code).value_or(SignShape{1000, 1000});
    const Box& box = sign.box;
    const qreal along = box.width / shape.width;
    QTransform place;
    place.translate(sign.mirrored ? box.x + box.width : box.x, box.y + box.height);
    place.scale(sign.mirrored ? -along : along, -box.height / shape.height);
    painter.fillPath(place.map(outlinePath(outline)), ink);
}

void paintUnknown(QPainter& painter, const PlacedSign& sign, const QColor& ink)
{
    const QRectF box = rectOf(sign.box);
    painter.setBrush(Qt::NoBrush);
    QPen dashes(ink, 22);
    dashes.setDashPattern({2.7, 2});
    painter.setPen(dashes);
    painter.drawRect(box);
    QFont font = painter.font();
    const qreal letters = std::max<qreal>(1, static_cast<qreal>(sign.code.size()));
    font.setPixelSize(
        std::max(1, static_cast<int>(std::min(box.width() / letters * 1.3, box.height() * 0.6))));
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(box, Qt::AlignCenter, qtext(sign.code));
}

}  // namespace

QPainterPath outlinePath(const std::vector<OutlineStep>& outline)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const OutlineStep& step : outline) {
        switch (step.kind) {
            case OutlineStep::Kind::Move:
                path.moveTo(step.x, step.y);
                break;
            case OutlineStep::Kind::Line:
                path.lineTo(step.x, step.y);
                break;
            case OutlineStep::Kind::Curve:
                path.quadTo(step.controlX, step.controlY, step.x, step.y);
                break;
            case OutlineStep::Kind::Close:
                path.closeSubpath();
                break;
        }
    }
    return path;
}

LayoutPainter::LayoutPainter(Desktop& desktop)
    : QObject(&desktop), session_(desktop.session()), placements_(kPlacements)
{
}

LayoutPainter& LayoutPainter::of(Desktop& desktop)
{
    auto* const known = desktop.findChild<LayoutPainter*>({}, Qt::FindDirectChildrenOnly);
    return known != nullptr ? *known : *new LayoutPainter(desktop);
}

SignDrawings& LayoutPainter::drawings()
{
    const std::string& directory = session_.images().GlyphDirectory();
    if (!drawings_ || directory_ != directory) {
        directory_ = directory;
        drawings_ = std::make_unique<SignDrawings>(session_.files(), directory);
        QPixmapCache::clear();  // it holds signs of the other directory
    }
    return *drawings_;
}

Layout LayoutPainter::layoutOf(const std::string& codes, const PhraseLook& look) const
{
    Layout layout = look.inRow ? rowOf(codes) : karvel::layoutOf(session_, codes);
    return look.ring ? ringed(std::move(layout)) : layout;
}

std::shared_ptr<const Placement> LayoutPainter::placementOf(const std::string& codes, const PhraseLook& look)
{
    const QString key = keyOf(session_, codes, look);
    if (const auto* const known = placements_.object(key)) {
        return *known;
    }
    auto placed = std::make_shared<const Placement>(place(layoutOf(codes, look), look.placement));
    placements_.insert(key, new std::shared_ptr<const Placement>(placed));
    return placed;
}

void LayoutPainter::paintSign(QPainter& painter, const PlacedSign& sign, const QColor& ink,
                              const QColor& paper)
{
    const SignDrawing& drawing = drawings().of(sign.code);
    if (sign.drawn && drawing.outline) {
        paintOutline(painter, sign, *drawing.outline, ink);
        return;
    }
    const QImage image = sign.drawn && !drawing.image.empty()
                             ? QImage::fromData(QByteArray::fromStdString(drawing.image))
                             : QImage();
    if (image.isNull()) {
        paintUnknown(painter, sign, ink);
        return;
    }
    const QRectF place = rectOf(SignDrawings::imageBox(drawing, sign.box));
    const QImage shown = image.mirrored(sign.mirrored, false);
    painter.drawImage(place, paper.isValid()
                                 ? onGround(shown, paper, painter.worldTransform().mapRect(place).size())
                                 : shown);
}

void LayoutPainter::paint(QPainter& painter, const Placement& placement, QPointF corner, qreal blockHeight,
                          const QColor& ink, const QColor& paper)
{
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.translate(corner);
    painter.scale(blockHeight / kBlockHeight, blockHeight / kBlockHeight);
    for (const PlacedSign& sign : placement.signs) {
        paintSign(painter, sign, ink, paper);
    }
    painter.setBrush(Qt::NoBrush);
    for (const PlacedRing& ring : placement.rings) {
        painter.setPen(QPen(ink, ring.thickness));
        painter.drawRoundedRect(rectOf(ring.frame), ring.radius, ring.radius);
        painter.fillRect(rectOf(ring.bar), ink);
    }
    painter.restore();
}

void LayoutPainter::paintCached(QPainter& painter, const std::string& codes, const PhraseLook& look,
                                QPointF corner, qreal blockHeight)
{
    const auto placement = placementOf(codes, look);
    const int kind = painter.device()->devType();
    const bool pixels = kind == QInternal::Widget || kind == QInternal::Pixmap || kind == QInternal::Image;
    const qreal ratio = painter.device()->devicePixelRatioF();
    const qreal margin = std::ceil(kPictureMargin * blockHeight / kBlockHeight);
    const QSizeF size = QSizeF(placement->width, placement->height) * (blockHeight / kBlockHeight) +
                        QSizeF(2 * margin, 2 * margin);
    if (!pixels || size.width() * size.height() * ratio * ratio > kMostPixels) {
        paint(painter, *placement, corner, blockHeight, look.ink);
        return;
    }
    static_cast<void>(drawings());  // empties the cache when another directory was set
    const QString key = QStringLiteral("blocks|%1|%2|%3|%4")
                            .arg(keyOf(session_, codes, look), look.ink.name(QColor::HexArgb))
                            .arg(blockHeight)
                            .arg(ratio);
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = QPixmap((size * ratio).toSize() + QSize(1, 1));
        picture.setDevicePixelRatio(ratio);
        picture.fill(Qt::transparent);
        QPainter inside(&picture);
        paint(inside, *placement, QPointF(margin, margin), blockHeight, look.ink);
        inside.end();
        QPixmapCache::insert(key, picture);
    }
    // At whole device pixels: between two of them the picture would be blurred.
    const QPointF at = (corner - QPointF(margin, margin)) * ratio;
    painter.drawPixmap(QPointF(at.toPoint()) / ratio, picture);
}

QSizeF phraseSize(const std::string& codes, qreal blockHeight, const PhraseLook& look, Desktop& desktop)
{
    const auto placement = LayoutPainter::of(desktop).placementOf(codes, look);
    const QSizeF units(placement->width + 2 * kPictureMargin, placement->height + 2 * kPictureMargin);
    return units * (blockHeight / kBlockHeight);
}

QRectF paintPhrase(QPainter& painter, const QRectF& area, const std::string& codes, qreal blockHeight,
                   const PhraseLook& look, Desktop& desktop)
{
    const QSizeF wanted = phraseSize(codes, blockHeight, look, desktop);
    const qreal fit = std::min({1.0, area.width() / wanted.width(), area.height() / wanted.height()});
    const qreal height = blockHeight * fit;
    if (codes.empty() || height < kFewestPixels) {
        return {};
    }
    const QSizeF size = wanted * fit;
    const qreal left = look.placement.rightToLeft ? area.right() - size.width() : area.left();
    const QRectF covered(QPointF(left, area.center().y() - size.height() / 2), size);
    const qreal margin = kPictureMargin * height / kBlockHeight;
    LayoutPainter::of(desktop).paintCached(painter, codes, look, covered.topLeft() + QPointF(margin, margin),
                                           height);
    return covered;
}

}  // namespace karvel
