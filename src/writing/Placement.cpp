#include "writing/Placement.hpp"

#include <algorithm>
#include <iterator>

#include "writing/Shapes.hpp"

namespace karvel {

namespace {

constexpr double kBetweenParts = 70;    // of a block, at least
constexpr double kBetweenBlocks = 130;  // in reading direction
constexpr double kWidestInColumn = 1300;
constexpr double kUnknownSide = 800;  // of the box for a sign that is not known
constexpr double kRingLine = 45;
constexpr double kRingSpace = 110;  // between the middle of the ring's line and what it holds
constexpr double kStanding = 870;   // a sign of this height stands on the ground, a lower one in the middle

/// A part that has been laid out by itself, its upper left corner at the origin.
struct Piece {
    double width = 0;
    double height = 0;
    std::vector<PlacedSign> signs;
    std::vector<PlacedRing> rings;
};

void scale(Box& box, double factor)
{
    box = {box.x * factor, box.y * factor, box.width * factor, box.height * factor};
}

void scale(Piece& piece, double factor)
{
    piece.width *= factor;
    piece.height *= factor;
    for (PlacedSign& sign : piece.signs) {
        scale(sign.box, factor);
    }
}

void reduceTo(Piece& piece, double width, double height)
{
    const double factor = std::min(width / piece.width, height / piece.height);
    if (factor < 1) {
        scale(piece, factor);
    }
}

void shift(Box& box, double x, double y)
{
    box.x += x;
    box.y += y;
}

/// Puts `part` into `whole` with its upper left corner at (x, y).
template <typename Whole>
void put(Piece part, double x, double y, Whole& whole)
{
    for (PlacedSign& sign : part.signs) {
        shift(sign.box, x, y);
        whole.signs.push_back(std::move(sign));
    }
    for (PlacedRing& ring : part.rings) {
        shift(ring.frame, x, y);
        shift(ring.bar, x, y);
        whole.rings.push_back(ring);
    }
}

Piece signPiece(const std::string& code)
{
    const auto shape = shapeOf(code);
    Piece piece;
    piece.width = shape ? shape->width : kUnknownSide;
    piece.height = shape ? shape->height : kUnknownSide;
    piece.signs.push_back({code, {0, 0, piece.width, piece.height}, shape.has_value(), false});
    return piece;
}

Piece pieceOf(const Group& group);

/// Parts in a row, on one ground where they are all high, else around one middle.
Piece besideEachOther(const std::vector<Group>& parts)
{
    std::vector<Piece> pieces;
    std::ranges::transform(parts, std::back_inserter(pieces), pieceOf);
    Piece whole;
    whole.height = std::ranges::max(pieces, {}, &Piece::height).height;
    for (Piece& piece : pieces) {
        const double x = whole.width + (whole.width > 0 ? kBetweenParts : 0);
        whole.width = x + piece.width;
        const double y = (whole.height - piece.height) / 2;
        put(std::move(piece), x, y, whole);
    }
    return whole;
}

/// Parts in a stack. What a block has to spare in height is divided evenly above, between and below them.
Piece aboveEachOther(const std::vector<Group>& parts)
{
    std::vector<Piece> pieces;
    std::ranges::transform(parts, std::back_inserter(pieces), pieceOf);
    Piece whole;
    double ink = 0;
    for (const Piece& piece : pieces) {
        whole.width = std::max(whole.width, piece.width);
        ink += piece.height;
    }
    const double gap = std::max((kBlockHeight - ink) / static_cast<double>(pieces.size() + 1), kBetweenParts);
    double y = 0;
    for (Piece& piece : pieces) {
        const double height = piece.height;
        const double x = (whole.width - piece.width) / 2;
        put(std::move(piece), x, y, whole);
        y += height + gap;
    }
    whole.height = y - gap;
    return whole;
}

Piece pieceOf(const Group& group)
{
    switch (group.kind) {
        case Group::Kind::Sign:
            return signPiece(group.code);
        case Group::Kind::Above:
            return aboveEachOther(group.parts);
        default:
            return besideEachOther(group.parts);
    }
}

/// Blocks one after the other, in one line or column of the other extent `across`.
class Line {
  public:
    Line(bool columns, double across) : columns_(columns), across_(across) {}

    [[nodiscard]] double length() const { return length_; }

    void add(Piece block)
    {
        if (length_ > 0) {
            length_ += kBetweenBlocks;
        }
        const double width = block.width;
        const double height = block.height;
        if (columns_) {
            put(std::move(block), (across_ - width) / 2, length_, piece_);
        } else {
            const double room = across_ - height;
            put(std::move(block), length_, height >= kStanding ? room : room / 2, piece_);
        }
        length_ += columns_ ? height : width;
    }

    [[nodiscard]] Piece take()
    {
        piece_.width = columns_ ? across_ : length_;
        piece_.height = columns_ ? length_ : across_;
        return std::move(piece_);
    }

  private:
    bool columns_;
    double across_;
    double length_ = 0;
    Piece piece_;
};

/// The ring fits into the line, so what it holds is reduced.
Piece ringPiece(const std::vector<Group>& blocks, bool columns)
{
    const double across = columns ? kWidestInColumn : kBlockHeight;
    const double border = kRingSpace + kRingLine / 2;
    Line line(columns, across);
    for (const Group& block : blocks) {
        Piece piece = pieceOf(block);
        reduceTo(piece, columns ? across : piece.width, kBlockHeight);
        line.add(std::move(piece));
    }
    Piece inside = line.take();
    scale(inside, (across - 2 * border) / across);
    const double radius = across / 2 - kRingLine / 2;
    const double ends = kRingSpace + radius / 4;  // the rounded ends leave less room than the sides
    const double length = (columns ? inside.height : inside.width) + 2 * ends;
    const double half = kRingLine / 2;
    Piece whole;
    PlacedRing ring{{half, half, across - kRingLine, length}, radius, kRingLine, {}};
    ring.bar = {0, length + half, across, kRingLine * 1.5};
    if (!columns) {
        std::swap(ring.frame.width, ring.frame.height);
        std::swap(ring.bar.x, ring.bar.y);
        std::swap(ring.bar.width, ring.bar.height);
    }
    ring.radius = std::min({ring.radius, ring.frame.width / 2, ring.frame.height / 2});
    whole.width = columns ? across : ring.bar.x + ring.bar.width;
    whole.height = columns ? ring.bar.y + ring.bar.height : across;
    put(std::move(inside), columns ? border : half + ends, columns ? half + ends : border, whole);
    whole.rings.push_back(ring);
    return whole;
}

Piece blockPiece(const Group& block, bool columns)
{
    if (block.kind == Group::Kind::Ring) {
        return ringPiece(block.parts, columns);
    }
    Piece piece = pieceOf(block);
    reduceTo(piece, columns ? kWidestInColumn : piece.width, kBlockHeight);
    return piece;
}

void mirror(Placement& placement)
{
    const auto turn = [&](Box& box) { box.x = placement.width - box.x - box.width; };
    for (PlacedSign& sign : placement.signs) {
        turn(sign.box);
        sign.mirrored = true;
    }
    for (PlacedRing& ring : placement.rings) {
        turn(ring.frame);
        turn(ring.bar);
    }
}

}  // namespace

Placement place(const Layout& layout, const PlacementOptions& options)
{
    const bool columns = options.columns;
    const double across = columns ? kWidestInColumn : kBlockHeight;
    Placement placement;
    double start = 0;  // of the line, across the reading direction
    Line line(columns, across);
    const auto endLine = [&] {
        const Piece piece = line.take();
        put(piece, columns ? start : 0, columns ? 0 : start, placement);
        placement.width = columns ? start + across : std::max(placement.width, piece.width);
        placement.height = columns ? std::max(placement.height, piece.height) : start + across;
        start += across + kBetweenLines;
        line = Line(columns, across);
    };
    for (const Group& block : layout.blocks) {
        Piece piece = blockPiece(block, columns);
        const double length = line.length() + kBetweenBlocks + (columns ? piece.height : piece.width);
        if (options.length > 0 && line.length() > 0 && length > options.length) {
            endLine();
        }
        line.add(std::move(piece));
    }
    if (!layout.blocks.empty()) {
        endLine();
    }
    if (options.rightToLeft) {
        mirror(placement);
    }
    return placement;
}

}  // namespace karvel
