#pragma once

#include <QTextDocument>

namespace karvel {

/// A tooltip for a text from a file. The toolkit takes what looks like markup for markup, and would load a
/// picture that it names, from another computer too.
inline QString plainTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

}  // namespace karvel
