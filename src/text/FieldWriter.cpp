#include "text/FieldWriter.hpp"

#include "text/CodePage.hpp"

namespace karvel {

namespace {

std::string printed(std::int64_t number)
{
    return (number < 0 ? "" : " ") + std::to_string(number);
}

}  // namespace

std::string fieldLine(std::string_view utf8)
{
    return encode(utf8) + "\r\n";
}

std::string quotedLine(std::string_view utf8)
{
    return "\"" + encode(utf8) + "\"\r\n";
}

bool needsQuotes(std::string_view utf8)
{
    return utf8.find_first_of(",\r\n") != std::string_view::npos || utf8.starts_with('"') ||
           utf8.starts_with(' ') || utf8.ends_with(' ');
}

std::string readableLine(std::string_view utf8)
{
    return needsQuotes(utf8) ? quotedLine(utf8) : fieldLine(utf8);
}

std::string numberLine(std::int64_t number)
{
    return printed(number) + "\r\n";
}

std::string spacedNumberLine(std::int64_t number)
{
    return printed(number) + " \r\n";
}

}  // namespace karvel
