#pragma once

#include <QAbstractButton>
#include <algorithm>
#include <string>

#include "windows/signs/PictureStore.hpp"

namespace karvel {

/// A square key that shows a sign: of the palette, of the favourites strip, of a card.
class SignButton : public QAbstractButton {
    Q_OBJECT

  public:
    /// `pictures` must outlive the button.
    explicit SignButton(PictureStore& pictures, QWidget* parent = nullptr);

    /// Shows the image at `systemPath`; empty for none. `code` names the sign in the tooltip and to
    /// assistive technology. With `codeAsText` the code is drawn when the image cannot be shown.
    ///
    void setSign(const std::string& systemPath, const std::string& code, bool codeAsText = false);

    /// Marks the key as that of the sign found last.
    void setMarked(bool marked);

    [[nodiscard]] const std::string& picturePath() const { return path_; }
    [[nodiscard]] const std::string& code() const { return code_; }

    /// The side of the square in which the sign is drawn, in logical pixels.
    [[nodiscard]] int pictureSide() const { return std::min(width(), height()) - 8; }

    [[nodiscard]] QSize sizeHint() const override { return {56, 56}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {28, 28}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    /// Enter presses the key, as the space bar does; the arrow keys move the focus in a grid.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    PictureStore& pictures_;
    std::string path_;
    std::string code_;
    bool codeAsText_ = false;
    bool marked_ = false;
};

}  // namespace karvel
