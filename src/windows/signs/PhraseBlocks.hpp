#pragma once

#include <QWidget>
#include <string>

#include "windows/signs/PhrasePicture.hpp"

class QPushButton;

namespace karvel {

struct PictureButtons {
    QPushButton* copy = nullptr;  ///< Ctrl+Shift+C presses it
    QPushButton* save = nullptr;
};

/// A button with the object name `name`, a caption, and `spoken` as its tooltip and its name for assistive
/// technology. Return does not press it by itself.
[[nodiscard]] QPushButton* spokenButton(const char* name, const QString& caption, const QString& spoken,
                                        QWidget* parent);

/// "Copia come figura" and "Salva figura...", not connected yet.
[[nodiscard]] PictureButtons pictureButtons(QWidget* parent);

/// Shows a phrase in blocks, and makes pictures of it that look like what it shows.
class PhraseBlocks : public QWidget {
    Q_OBJECT

  public:
    /// `desktop` must outlive the widget. `whenEmpty` is shown in place of an empty phrase.
    PhraseBlocks(Desktop& desktop, const QString& whenEmpty, QWidget* parent);

    /// The ink of `picture.look` is not used: the widget's signs stand out from the colour of the display.
    void setPicture(PhrasePicture picture);
    [[nodiscard]] const PhrasePicture& picture() const { return picture_; }

    /// Breaks the lines, or columns, for a view of this size, and resizes itself to what they need.
    void fit(QSize view);

    void copy() { copyPicture(picture_, desktop_); }
    void save() { savePicture(*this, picture_, desktop_); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Desktop& desktop_;
    QString whenEmpty_;
    PhrasePicture picture_;
};

}  // namespace karvel
