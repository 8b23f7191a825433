#pragma once

#include <QDialog>
#include <functional>

#include "settings/Colours.hpp"

namespace karvel {

class ColourButton;
class Desktop;
class WindowSet;

/// The colours of the display and of the main window.
class Form5 : public QDialog {
    Q_OBJECT

  public:
    /// Shows the colours that are in force.
    Form5(Desktop& desktop, QWidget* parent);

    /// The menu "Preferenze colori": reads both colours from their files and opens the window, which shows
    /// them on its own buttons alone. Throws RuntimeError when a file cannot be read; the window then stays
    /// closed.
    static void openFromMenu(Desktop& desktop, WindowSet& windows);

  private:
    using Apply = std::function<void(Colour)>;

    void addLine(int row, ColourButton* chooser, const char* original, const QString& purpose,
                 Colour defaultColour, const Apply& apply);
    void applyTo(ColourButton* chooser, const Apply& apply, Colour chosen);

    Desktop& desktop_;
    ColourButton* command1_;
    ColourButton* command2_;
};

}  // namespace karvel
