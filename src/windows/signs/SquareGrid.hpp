#pragma once

#include <QString>
#include <QWidget>
#include <array>
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

    /// Two lines that explain a key; the first is the more important one.
    using Caption = std::array<QString, 2>;

    /// The number of keys in a row now.
    [[nodiscard]] int columns() const { return plan_.columns; }

    /// Lines of captions that are shown now: 0 to 2.
    [[nodiscard]] int captionLines() const { return plan_.captionLines; }

    /// Moves the focus from `from` to its neighbour in the direction of the arrow key `key`, Home or End;
    /// false for any other key. At an edge the focus stays.
    bool moveFocus(QWidget* from, int key);

    /// Where the squares leave space, the gaps grow, so that the rows begin and end at the grid's edges. Of
    /// the layouts with nearly the largest squares, the one with the most even gaps is taken.
    void fillArea() { fillsArea_ = true; }

    /// Shows `caption` below a key, in a grid that fills its area and where its rows leave space for it.
    void setCaption(std::size_t key, const Caption& caption);

    /// No square is drawn larger than this, in logical pixels.
    void setLargestSide(int side) { largestSide_ = side; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    static constexpr int kGap = 3;  // logical pixels between keys

    struct Plan {
        int columns = 1;
        int rows = 1;
        int side = 1;
        int captionLines = 0;
        qreal across = kGap;  ///< logical pixels between two squares of a row
        qreal down = kGap;    ///< between a row, with its captions, and the next
    };

    void arrange();
    void stopAt(QWidget& key);
    [[nodiscard]] Plan planFor(int columns) const;
    [[nodiscard]] Plan bestPlan() const;
    [[nodiscard]] qreal unevenness(const Plan& plan) const;
    [[nodiscard]] int captionHeight(int lines) const;

    int rows_;
    int largestSide_ = 400;
    bool fillsArea_ = false;  ///< false: the gaps do not grow, and the squares stand in the middle
    Plan plan_;
    std::vector<Caption> captions_;
    std::vector<QWidget*> keys_;
    QWidget* stop_ = nullptr;  ///< the key at which Tab stops
};

}  // namespace karvel
