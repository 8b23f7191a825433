#pragma once

#include <QWidget>
#include <vector>

#include "reading/Passage.hpp"

namespace karvel {

class Desktop;

/// The words of a passage in lines that wrap, as textbooks print them: the signs, below them the
/// transliteration, below that the translation. What is doubtful is paler, with a dotted line.
class ReadingLines : public QWidget {
    Q_OBJECT

  public:
    /// `desktop` and `passage` must outlive the widget.
    ReadingLines(Desktop& desktop, const Passage& passage, QWidget* parent);

    /// Shows the passage as it is now; the current word stays the one at the same sign.
    void showPassage();

    /// The place of the current word in the passage; 0 when there is none.
    [[nodiscard]] std::size_t current() const { return current_; }
    void setCurrent(std::size_t word);

    /// The word's rectangle in the widget; empty when there is no such word.
    [[nodiscard]] QRect place(std::size_t word) const;

    [[nodiscard]] int heightForWidth(int width) const override;

  signals:
    /// A click on the current word, or Return.
    void opened();
    /// Space: the next choice is wanted.
    void nextWanted();
    void currentChanged();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

  private:
    /// The words' places in a widget so wide.
    struct Arrangement {
        int width = -1;
        int height = 0;
        std::vector<QRect> places;
    };
    [[nodiscard]] QSize sizeOf(const ReadWord& word, int width) const;
    [[nodiscard]] const Arrangement& arranged(int width) const;
    [[nodiscard]] const std::vector<QRect>& places() const { return arranged(width()).places; }
    [[nodiscard]] std::size_t wordAt(QPoint point) const;
    [[nodiscard]] std::size_t wordInLine(bool below) const;
    [[nodiscard]] QString spoken(std::size_t word) const;
    void paintWord(QPainter& painter, std::size_t word);
    void paintReading(QPainter& painter, const ReadWord& read, const QRect& place);

    Desktop& desktop_;
    const Passage& passage_;
    mutable Arrangement arrangement_;  ///< the last one; its width is -1 when the words changed
    std::size_t current_ = 0;
    std::size_t currentSign_ = 0;  ///< the first of the current word
};

}  // namespace karvel
