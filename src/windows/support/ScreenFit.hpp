#pragma once

#include <QObject>
#include <QRect>
#include <QSize>

class QWidget;

namespace karvel {

/// The part of the window's screen that its content may take: the free area without the window's frame,
/// logical pixels.
[[nodiscard]] QRect usableArea(const QWidget& window);

/// Makes the window no larger than that, and moves it wholly onto the screen if it was placed.
void keepOnScreen(QWidget& window);

/// Gives the window the size `usual` and places it over the palette of `main`, so that the display stays
/// visible.
void placeOverPalette(QWidget& window, const QWidget& main, QSize usual);

/// Calls keepOnScreen for every window and dialog of the program at the moment in which it is shown.
class ScreenFit : public QObject {
    Q_OBJECT

  public:
    /// Watches the whole application until it is destroyed.
    ScreenFit();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace karvel
