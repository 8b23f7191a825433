#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace karvel {

/// The core's UTF-8 as the toolkit's text, and back.
inline QString qtext(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

inline std::string utf8(const QString& text)
{
    return text.toStdString();
}

/// What the user has typed or pasted, as UTF-8 in composed form (NFC): a letter and its accent are one
/// character, as in the files.
inline std::string typed(const QString& text)
{
    return utf8(text.normalized(QString::NormalizationForm_C));
}

/// The name of an element of a control array.
inline QString element(const char* array, std::size_t index)
{
    return QString::fromLatin1(array) + QLatin1Char('(') + QString::number(index) + QLatin1Char(')');
}

}  // namespace karvel
