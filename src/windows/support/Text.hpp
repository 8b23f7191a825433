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

/// The name of an element of a control array.
inline QString element(const char* array, std::size_t index)
{
    return QString::fromLatin1(array) + QLatin1Char('(') + QString::number(index) + QLatin1Char(')');
}

}  // namespace karvel
