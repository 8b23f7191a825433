#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "windows/signs/PictureStore.hpp"

namespace karvel {

/// Signs in lines that wrap, each with its code beneath. Within limits they are as large as the view allows
/// without scrolling.
class MagnifiedPhrase : public QWidget {
    Q_OBJECT

  public:
    struct Sign {
        std::string path;  ///< of the image, in the system's form
        std::string code;

        friend bool operator==(const Sign&, const Sign&) = default;
    };

    /// `pictures` must outlive the widget.
    MagnifiedPhrase(PictureStore& pictures, QWidget* parent);

    void setSigns(std::vector<Sign> signs);
    [[nodiscard]] const std::vector<Sign>& signs() const { return signs_; }

    /// Arranges the signs for a view of this size and resizes itself to what they need.
    void fit(QSize view);

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    [[nodiscard]] int columns(int side, int width) const;
    [[nodiscard]] int heightFor(int side, int width) const;
    [[nodiscard]] int captionHeight() const;
    [[nodiscard]] QRect cell(std::size_t sign) const;

    PictureStore& pictures_;
    std::vector<Sign> signs_;
    int side_ = 0;  ///< of a sign, logical pixels
};

}  // namespace karvel
