#include "windows/signs/GifImage.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace karvel {
namespace {

using namespace std::string_literals;

/// Codes of three bits that never stand for more than one pixel: a clear code goes before every second one.
std::string plainCodes(const std::string& pixels)
{
    std::string bits;
    const auto add = [&bits](int code) {
        for (int bit = 0; bit < 3; ++bit) {
            bits += (code >> bit & 1) != 0 ? '1' : '0';
        }
    };
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        if (i % 2 == 0) {
            add(4);
        }
        add(pixels[i] - '0');
    }
    add(5);
    std::string bytes;
    for (std::size_t i = 0; i < bits.size(); i += 8) {
        std::string byte = bits.substr(i, 8);
        bytes += static_cast<char>(std::stoi(std::string(byte.rbegin(), byte.rend()), nullptr, 2));
    }
    return "\2" + std::string(1, static_cast<char>(bytes.size())) + bytes + std::string(1, '\0');
}

/// Four columns and five rows, every row of one colour: 3, 2, 1, 0, 3.
struct Picture {
    std::string size = "\4\0\5\0"s;
    std::string flags = "\x81\0\0"s;  // four colours
    std::string palette = "\0\0\0\xFF\0\0\0\xFF\0\0\0\xFF"s;
    std::string extensions = "!\xF9\4\1\0\0\2\0"s;  // colour 2 is transparent
    std::string frame = ",\0\0\0\0\4\0\5\0\0"s;
    std::string codes = plainCodes("33332222111100003333");
    std::string end = ";";

    [[nodiscard]] std::string file() const
    {
        return "GIF89a" + size + flags + palette + extensions + frame + codes + end;
    }
};

std::string shown(const std::string& file)
{
    const std::optional<GifImage> image = readGif(file);
    std::string digits;
    for (const unsigned char pixel : image ? image->pixels : std::vector<unsigned char>()) {
        digits += static_cast<char>('0' + pixel);
    }
    return digits;
}

TEST(GifImage, ReadsTheUsualForm)
{
    Picture picture;
    const std::optional<GifImage> image = readGif(picture.file());
    ASSERT_TRUE(image);
    EXPECT_EQ(image->width, 4U);
    EXPECT_EQ(image->height, 5U);
    EXPECT_EQ(image->colours, (std::vector<std::uint32_t>{0xFF000000, 0xFFFF0000, 0, 0xFF0000FF}));
    EXPECT_EQ(shown(picture.file()), "33332222111100003333");
    picture.frame.back() = '\x40';  // interlaced: rows 0, 4, 2, 1, 3
    EXPECT_EQ(shown(picture.file()), "33330000111133332222");
    picture.extensions = "!\xFE\3abc\0"s;  // a comment
    EXPECT_EQ(readGif(picture.file())->colours[2], 0xFF00FF00);
}

TEST(GifImage, LeavesEverythingElseAlone)
{
    const Picture usual;
    const std::string whole = usual.file();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(readGif(whole.substr(0, length))) << length;
    }
    const struct {
        const char* what;
        void (*change)(Picture&);
    } kCases[] = {
        {"no palette", [](Picture& p) { p.flags[0] = 1; }},
        {"larger than any sign", [](Picture& p) { p.size = p.frame.substr(5, 4) = "\xFF\xFF\xFF\xFF"; }},
        {"not at the corner", [](Picture& p) { p.frame[1] = 1; }},
        {"too few pixels", [](Picture& p) { p.codes = plainCodes("3333222211110000333"); }},
        {"too many pixels", [](Picture& p) { p.codes = plainCodes("333322221111000033330"); }},
        {"no picture", [](Picture& p) { p.frame = p.codes = ""; }},
        {"an unknown code", [](Picture& p) { p.codes = "\2\2\x7C\1\0"s; }},
        {"another picture", [](Picture& p) { p.end = p.frame + p.codes + ";"; }},
    };
    for (const auto& [what, change] : kCases) {
        Picture picture = usual;
        change(picture);
        EXPECT_FALSE(readGif(picture.file())) << what;
    }
}

/// Others would be decoded by the toolkit, and the start would take twice as long.
TEST(GifImage, EverySignIsOfTheUsualForm)
{
    int signs = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KARVEL_SOURCE_DIR "/data/tree/GR")) {
        std::ifstream file(entry.path(), std::ios::binary);
        EXPECT_TRUE(readGif(std::string(std::istreambuf_iterator<char>(file), {}))) << entry.path();
        ++signs;
    }
    EXPECT_GT(signs, 700);
}

}  // namespace
}  // namespace karvel
