#include "text/FieldReader.hpp"

#include <gtest/gtest.h>

#include "support/FieldModel.hpp"
#include "text/CodePage.hpp"
#include "text/FieldWriter.hpp"

namespace karvel {
namespace {

struct Read {
    std::vector<std::string> fields;
    bool failed = false;       ///< ended by error 62 instead of the end
    bool insideQuote = false;  ///< and that inside double quotes

    friend bool operator==(const Read&, const Read&) = default;
};

void PrintTo(const Read& read, std::ostream* out)
{
    for (const std::string& field : read.fields) {
        *out << "<" << ::testing::PrintToString(field) << "> ";
    }
    *out << (read.failed ? "error 62" : "") << (read.insideQuote ? " inside quotes" : "");
}

Read readAll(std::string_view text, std::size_t window, std::size_t step)
{
    testing::Dribble source(text, step);
    FieldReader reader(source, window);
    Read read;
    try {
        while (!reader.atEnd()) {
            read.fields.emplace_back(reader.field());
        }
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.value(), 62);
        read.failed = true;
        read.insideQuote = reader.insideQuote();
    }
    return read;
}

TEST(FieldReader, ReadsEveryFormOfAFieldWhateverTheWindow)
{
    const struct {
        std::string_view file;
        Read read;
    } kCases[] = {
        {"", {{}}},
        {"a", {{"a"}}},                                // the last line end is missing
        {"a\r\nb\nc\rd\r\n", {{"a", "b", "c", "d"}}},  // mixed line ends
        {"a\n\rb", {{"a", "", "b"}}},                  // LF CR is two line ends
        {"a\r\r\nb", {{"a", "", "b"}}},
        {"a\r\n\r\nb\r\n", {{"a", "", "b"}}},  // an empty line is an empty field
        {"\n", {{""}}},
        {",,", {{"", ""}}},
        {"a,", {{"a"}}},  // a comma ends a field, it begins none
        {"  a b  ,  c  \r\n", {{"a b", "c"}}},
        {"\"  a  \" \r\n", {{"  a  "}}},                     // blanks inside quotes are kept
        {"\"a, b\",c\r\n", {{"a, b", "c"}}},                 // a comma in quotes belongs to the field
        {"\"two\r\nlines\"\r\nx", {{"two\r\nlines", "x"}}},  // and so does a line end
        {"\"\"\r\n\"\"", {{"", ""}}},
        {"\"a\" rubbish,b", {{"a", "b"}}},  // what follows the closing quote is dropped
        {"\"a\"\"b\",c", {{"a", "c"}}},     // doubling does not escape a quote
        {"a\"b\",c", {{"a\"b\"", "c"}}},    // a quote inside a bare field is a character
        {"\"a\"\r\n\"never closed\r\n", {{"a"}, true, true}},
        {"\"", {{}, true, true}},
        {"a\r\n  ", {{"a"}, true, false}},  // blanks alone are no field
        {std::string_view("a\0b\r\n\x81\x8D\x8F\x90\x9D\r\n", 11),
         {{std::string("a\0b", 3), "\x81\x8D\x8F\x90\x9D"}}},  // any byte is text
        {"\"a twenty-three bytes it\"\r\n\"and a second field in quotes\",bare, and the last of them all",
         {{"a twenty-three bytes it", "and a second field in quotes", "bare", "and the last of them all"}}},
    };
    for (const auto& [file, read] : kCases) {
        for (const std::size_t window : {16, 17, 31, 4096}) {
            for (const std::size_t step : {1, 3, 4096}) {
                EXPECT_EQ(readAll(file, window, step), read)
                    << ::testing::PrintToString(file) << " window " << window << " step " << step;
            }
        }
    }
}

TEST(FieldReader, KnowsBlankLinesAtTheEndFromEmptyFields)
{
    TextSource source("\"a\"\r\n\n \r\n\"b\"\n\n  \r");
    FieldReader reader(source, 16);
    EXPECT_EQ(reader.field(), "a");
    EXPECT_FALSE(reader.atEndButBlankLines());
    std::array<std::string_view, 3> fields;
    reader.fields(fields);
    EXPECT_EQ(fields,
              (std::array<std::string_view, 3>{"", "", "b"}));  // the empty lines before it still count
    EXPECT_TRUE(reader.atEndButBlankLines());
    EXPECT_TRUE(reader.atEnd());
}

TEST(FieldReader, ReadsOneHundredMegabytesOfOneField)
{
    constexpr std::size_t kLength = 100'000'000;
    const std::string text = "\"" + std::string(kLength, 'x') + "\"\r\nnext";
    TextSource whole(text);
    FieldReader reader(whole);
    EXPECT_EQ(reader.field(), std::string_view(text).substr(1, kLength));
    EXPECT_EQ(reader.field(), "next");
    EXPECT_EQ(reader.position(), text.size());

    TextSource open(std::string_view(text).substr(0, kLength));
    FieldReader unclosed(open);
    EXPECT_THROW((void)unclosed.field(), RuntimeError);
    EXPECT_TRUE(unclosed.insideQuote());
}

TEST(FieldReader, ReadsBackWhatWasWritten)
{
    for (const std::string_view text : {"", "a", " a", "a ", "a,b", "a\r", "a\nb", "perché, l’È", "a\"b"}) {
        const std::string line = readableLine(text);
        EXPECT_EQ(line.starts_with('"'), text.size() > 1 && text != "a\"b") << text;
        TextSource source(line);
        FieldReader reader(source);
        EXPECT_EQ(decode(reader.field()), text);
        EXPECT_TRUE(reader.atEnd());
    }
    EXPECT_EQ(quotedLine("È") + fieldLine("x") + numberLine(-3) + numberLine(3) + spacedNumberLine(3),
              "\"\xC8\"\r\nx\r\n-3\r\n 3\r\n 3 \r\n");
}

TEST(FieldReader, ConvertsNumbers)
{
    constexpr int kOverflow = 1'000'000;
    const struct {
        std::string_view text;
        int value;
    } kCases[] = {
        {" 3\r\n", 3},
        {" 3 ", 3},
        {"\" 7 \"", 7},
        {"\"7\"", 7},
        {"+5", 5},
        {"-5", -5},
        {"+-5", 0},
        {"-32768", -32768},
        {"32767.4", 32767},
        {"32767.6", kOverflow},
        {"40000", kOverflow},
        {"-32769", kOverflow},
        {"0.5", 0},
        {"1.5", 2},
        {"2.5", 2},
        {"-1.5", -2},
        {"1e3", 1000},
        {"1e400", kOverflow},
        {"1e-400", 0},
        {"3,5", 3},
        {"tre", 0},
        {"3x", 0},
        {"inf", 0},
        {"nan", 0},
        {"0x10", 0},
        {"", kOverflow},
        {"\r\n", 0},
        {"-", 0},
    };
    for (const auto& [text, value] : kCases) {
        TextSource source(text);
        FieldReader reader(source);
        int read = kOverflow;
        try {
            read = reader.number<std::int16_t>();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.value(), text.empty() ? 62 : 6) << text;
        }
        EXPECT_EQ(read, value) << text;
    }
}

TEST(FieldReader, KeepsTheRangeOfEachKindOfNumber)
{
    TextSource source("255,256,-1,2147483647,2147483648,-2147483648");
    FieldReader reader(source);
    EXPECT_EQ(reader.number<std::uint8_t>(), 255);
    EXPECT_THROW((void)reader.number<std::uint8_t>(), RuntimeError);
    EXPECT_THROW((void)reader.number<std::uint8_t>(), RuntimeError);
    EXPECT_EQ(reader.number<std::int32_t>(), 2147483647);
    EXPECT_THROW((void)reader.number<std::int32_t>(), RuntimeError);
    EXPECT_EQ(reader.number<std::int32_t>(), -2147483647 - 1);
}

}  // namespace
}  // namespace karvel
