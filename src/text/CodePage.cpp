#include "text/CodePage.hpp"

#include <array>
#include <cstdint>
#include <optional>

namespace karvel {

namespace {

/// What the bytes 0x80 to 0x9F stand for; the undefined ones stand for themselves.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t characterOf(unsigned char byte)
{
    return byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80] : byte;
}

std::optional<unsigned char> byteOf(char32_t character)
{
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<unsigned char>(character);
    }
    for (std::size_t i = 0; i < kHighControls.size(); ++i) {
        if (kHighControls[i] == character) {
            return static_cast<unsigned char>(0x80 + i);
        }
    }
    return std::nullopt;
}

constexpr unsigned char upperOf(unsigned char byte)
{
    const bool latinSmall = byte >= 0xE0 && byte <= 0xFE && byte != 0xF7;  // 0xF7 is the division sign
    if ((byte >= 'a' && byte <= 'z') || latinSmall) {
        return static_cast<unsigned char>(byte - 0x20);
    }
    switch (byte) {
        case 0x9A:
            return 0x8A;  // š
        case 0x9C:
            return 0x8C;  // œ
        case 0x9E:
            return 0x8E;  // ž
        case 0xFF:
            return 0x9F;  // ÿ
        default:
            return byte;
    }
}

constexpr std::array<unsigned char, 256> kUpper = [] {
    std::array<unsigned char, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        table[i] = upperOf(static_cast<unsigned char>(i));
    }
    return table;
}();

/// The letter without its accent; `byte` is in upper case.
constexpr unsigned char plainOf(unsigned char byte)
{
    constexpr std::string_view kPlain =
        "AAAAAA\xC6"
        "CEEEEIIII\xD0"
        "NOOOOO\xD7"
        "OUUUUY\xDE\xDF";
    if (byte >= 0xC0 && byte <= 0xDF) {
        return static_cast<unsigned char>(kPlain[byte - 0xC0]);
    }
    return byte == 0x8A ? 'S' : byte == 0x8E ? 'Z' : byte == 0x9F ? 'Y' : byte;
}

}  // namespace

char32_t nextCharacter(std::string_view utf8, std::size_t& at)
{
    constexpr char32_t kReplacement = 0xFFFD;
    const auto lead = static_cast<unsigned char>(utf8[at++]);
    if (lead < 0x80) {
        return lead;
    }
    const int following = lead >= 0xF0 && lead < 0xF5   ? 3
                          : lead >= 0xE0 && lead < 0xF0 ? 2
                          : lead >= 0xC2 && lead < 0xE0 ? 1
                                                        : 0;
    if (following == 0) {
        return kReplacement;
    }
    constexpr std::array<char32_t, 4> kSmallest = {0, 0x80, 0x800, 0x10000};
    char32_t character = lead & (0x3F >> following);
    std::size_t next = at;
    for (int i = 0; i < following; ++i, ++next) {
        if (next >= utf8.size() || (static_cast<unsigned char>(utf8[next]) & 0xC0) != 0x80) {
            return kReplacement;
        }
        character = (character << 6) | (static_cast<unsigned char>(utf8[next]) & 0x3F);
    }
    at = next;
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    const bool valid =
        character >= kSmallest[static_cast<std::size_t>(following)] && character <= 0x10FFFF && !surrogate;
    return valid ? character : kReplacement;
}

void appendCharacter(std::string& utf8, char32_t character)
{
    const auto tail = [&utf8](char32_t bits) { utf8.push_back(static_cast<char>(0x80 | (bits & 0x3F))); };
    if (character < 0x80) {
        utf8.push_back(static_cast<char>(character));
    } else if (character < 0x800) {
        utf8.push_back(static_cast<char>(0xC0 | (character >> 6)));
        tail(character);
    } else if (character < 0x10000) {
        utf8.push_back(static_cast<char>(0xE0 | (character >> 12)));
        tail(character >> 6);
        tail(character);
    } else {
        utf8.push_back(static_cast<char>(0xF0 | (character >> 18)));
        tail(character >> 12);
        tail(character >> 6);
        tail(character);
    }
}

std::string decode(std::string_view bytes)
{
    std::string utf8;
    utf8.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        appendCharacter(utf8, characterOf(static_cast<unsigned char>(byte)));
    }
    return utf8;
}

std::string encode(std::string_view utf8)
{
    std::string bytes;
    bytes.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        bytes.push_back(static_cast<char>(byteOf(nextCharacter(utf8, at)).value_or('?')));
    }
    return bytes;
}

std::string unencodable(std::string_view utf8)
{
    std::string missing;
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t character = nextCharacter(utf8, at);
        if (byteOf(character)) {
            continue;
        }
        std::string one;
        appendCharacter(one, character);
        if (missing.find(one) == std::string::npos) {
            missing += one;
        }
    }
    return missing;
}

std::string upperCase(std::string_view utf8)
{
    std::string upper;
    upper.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t character = nextCharacter(utf8, at);
        const auto byte = byteOf(character);
        appendCharacter(upper, byte ? characterOf(kUpper[*byte]) : character);
    }
    return upper;
}

unsigned char upperCaseByte(unsigned char byte)
{
    return kUpper[byte];
}

std::string upperCaseBytes(std::string_view bytes)
{
    std::string upper(bytes);
    for (char& byte : upper) {
        byte = static_cast<char>(kUpper[static_cast<unsigned char>(byte)]);
    }
    return upper;
}

std::string foldedBytes(std::string_view bytes)
{
    std::string folded(bytes);
    for (char& byte : folded) {
        byte = static_cast<char>(plainOf(kUpper[static_cast<unsigned char>(byte)]));
    }
    return folded;
}

}  // namespace karvel
