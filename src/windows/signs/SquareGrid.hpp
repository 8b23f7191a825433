#pragma once

#include <QWidget>
#include <vector>

namespace karvel {

/// Lays its keys out in rows of equal squares, as large as its own size allows. The Tab key stops once in the
/// grid, at the key that had the focus last; the arrow keys move in it.
class SquareGrid : public QWidget {
    Q_OBJECT

  public:
    /// `rows` fixes the number of rows; 0 takes the number that gives the largest squares.
    explicit SquareGrid(int rows, QWidget* parent = nullptr) : QWidget(parent), rows_(rows) {}

    /// Appends `key`, which becomes a child of the grid.
    void add(QWidget* key);

    /// The number of keys in a row now.
    [[nodiscard]] int columns() const { return columns_; }

    /// Moves the focus from `from` to its neighbour in the direction of the arrow key `key`, Home or End;
    /// false for any other key. At an edge the focus stays.
    bool moveFocus(QWidget* from, int key);

    /// Where the squares leave space, the gaps between them grow, at most to `widestGap` logical pixels, so
    /// that the rows begin and end at the grid's edges.
    void fillWidth(int widestGap) { widestGap_ = widestGap; }

    /// No square is drawn larger than this, in logical pixels.
    void setLargestSide(int side) { largestSide_ = side; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void arrange();
    void stopAt(QWidget& key);
    [[nodiscard]] qreal gap(int length, int side, int count) const;

    int rows_;
    int columns_ = 1;
    int largestSide_ = 400;
    int widestGap_ = 0;  ///< 0: the gaps do not grow, and the squares stand in the middle
    std::vector<QWidget*> keys_;
    QWidget* stop_ = nullptr;  ///< the key at which Tab stops
};

}  // namespace karvel
