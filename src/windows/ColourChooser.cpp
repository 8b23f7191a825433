#include "windows/ColourChooser.hpp"

#include <QColorDialog>
#include <QString>
#include <QWidget>

#include "base/WindowsHeader.hpp"

#ifdef Q_OS_WIN
#include <commdlg.h>
#endif

namespace karvel {

#ifdef Q_OS_WIN

/// The toolkit has no binding to the system's colour dialog here. That dialog has its own title.
QColor chooseColour(const QColor& present, QWidget& parent, const QString& /*title*/)
{
    static COLORREF ownColours[16] = {};  // what the user has composed stays until the program ends
    CHOOSECOLORW dialog = {};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = reinterpret_cast<HWND>(parent.winId());
    dialog.rgbResult = RGB(present.red(), present.green(), present.blue());
    dialog.lpCustColors = ownColours;
    dialog.Flags = CC_RGBINIT | CC_FULLOPEN;
    if (ChooseColorW(&dialog) == 0) {
        return {};
    }
    return {GetRValue(dialog.rgbResult), GetGValue(dialog.rgbResult), GetBValue(dialog.rgbResult)};
}

#else

QColor chooseColour(const QColor& present, QWidget& parent, const QString& title)
{
    return QColorDialog::getColor(present, &parent, title);
}

#endif

}  // namespace karvel
