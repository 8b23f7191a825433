#include "text/CodePage.hpp"

#include <gtest/gtest.h>

namespace karvel {
namespace {

TEST(CodePage, EveryByteSurvivesReadingAndWriting)
{
    for (int byte = 0; byte < 256; ++byte) {
        const std::string one(1, static_cast<char>(byte));
        EXPECT_EQ(encode(decode(one)), one) << byte;
        EXPECT_EQ(unencodable(decode(one)), "") << byte;
    }
    EXPECT_EQ(decode("\x80 \x92 \xE0 \x9F"), "€ ’ à Ÿ");
    EXPECT_EQ(decode("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");  // undefined, yet kept
}

TEST(CodePage, NamesWhatItLacks)
{
    const struct {
        std::string_view text, missing, written;
    } kCases[] = {
        {"perché, l’È", "", "perch\xE9, l\x92\xC8"},
        {"nfr 𓄤, ḥtp, ḥ, 𓄤", "𓄤ḥ", "nfr ?, ?tp, ?, ?"},  // each once, in order, beyond 16 bits too
        {"\u0085", "\u0085", "?"},                       // the byte 0x85 is an ellipsis, not this control
        {"a\xC3", "\uFFFD", "a?"},                       // cut UTF-8
        {"\xC0\x80", "\uFFFD", "??"},                    // overlong UTF-8 is no way to smuggle in a NUL
        {"\xED\xA0\x80", "\uFFFD", "?"},                 // a lone surrogate
        {"\xF5", "\uFFFD", "?"},
    };
    for (const auto& [text, missing, written] : kCases) {
        EXPECT_EQ(unencodable(text), missing);
        EXPECT_EQ(encode(text), written);
    }
}

TEST(CodePage, UpperCaseIsTheCodePages)
{
    EXPECT_EQ(upperCase("perché è così, œuvre ž š ÿ"), "PERCHÉ È COSÌ, ŒUVRE Ž Š Ÿ");
    EXPECT_EQ(upperCase("ß ÷ × µ ª ḥ 𓄤 [`{"), "ß ÷ × µ ª ḥ 𓄤 [`{");  // no upper case, or none in the page
    EXPECT_EQ(upperCaseBytes("\xE0\xF7\xFF\x9A"), "\xC0\xF7\x9F\x8A");
}

TEST(CodePage, FoldsAsPeopleSort)
{
    EXPECT_EQ(foldedBytes("\xC0\xE8\xEC\xF2\xF9\xE7\xF1\xFF\x9E z"), "AEIOUCNYZ Z");
    EXPECT_EQ(foldedBytes("\xC6\xD7\xDF"), "\xC6\xD7\xDF");
}

}  // namespace
}  // namespace karvel
