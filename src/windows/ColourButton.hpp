#pragma once

#include <QPushButton>

namespace karvel {

/// A button whose face is exactly one colour, its caption readable on it.
class ColourButton : public QPushButton {
    Q_OBJECT

  public:
    ColourButton(const QString& caption, QWidget* parent);

    void setColour(const QColor& colour);
    [[nodiscard]] QColor colour() const { return colour_; }

    [[nodiscard]] QSize sizeHint() const override { return {220, 48}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor colour_;
};

}  // namespace karvel
