#pragma once

#include <QAbstractButton>

#include "compose/DisplayLine.hpp"
#include "windows/signs/PictureStore.hpp"

namespace karvel {

/// One of the twelve cells of the display line.
class SignCell : public QAbstractButton {
    Q_OBJECT

  public:
    /// `pictures` must outlive the cell.
    explicit SignCell(PictureStore& pictures, QWidget* parent = nullptr);

    /// Shows `cell`; `selected` marks it for deletion.
    void setCell(const DisplayLine::Cell& cell, bool selected);

    [[nodiscard]] const DisplayLine::Cell& cell() const { return cell_; }

    [[nodiscard]] QSize sizeHint() const override { return {84, 84}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {36, 36}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    PictureStore& pictures_;
    DisplayLine::Cell cell_;
    bool selected_ = false;
};

}  // namespace karvel
