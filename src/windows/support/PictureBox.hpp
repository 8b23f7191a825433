#pragma once

#include <QWidget>

namespace karvel {

/// Shows a picture of the program at a fixed size, sharp at every resolution.
class PictureBox : public QWidget {
    Q_OBJECT

  public:
    /// `size` is how large the picture is shown, in logical pixels.
    PictureBox(const QPixmap& picture, QSize size, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override { return size_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QPixmap picture_;
    QSize size_;
};

}  // namespace karvel
