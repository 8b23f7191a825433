#include "text/FieldReader.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>

#include "support/FieldModel.hpp"

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

/// Text made of the characters that matter, with whole records in the usual form among them.
std::string randomText(std::mt19937& random)
{
    static constexpr std::string_view kPieces =
        "\"|,|\r|\n|\r\n| |  |a01|b|\"a, b\"\r\n|\xE0 word|\"\"\r\n|\"\r\n\"\r\n|\"a rather long field\"\r\n|"
        "\"b02\"\r\n\"y\"\r\n\"\"\r\n\"w\"\r\n|\"a01\"\r\n\"due\"\r\n\"\"\r\n\"\"\r\n";
    static const std::string kRecords[] = {
        "\"c03d04\"\r\n\"casa\"\r\n\"pr\"\r\n\"\"\r\n", "\"a0\"\r\n\"1\"\r\n\"\"\r\n\"\"\r\n",
        "\"e05\"\r\n\"" + std::string(150, 'x') + "\"\r\n\"\"\r\n\"\"\r\n"};
    std::vector<std::string_view> pieces;
    for (std::size_t at = 0; at < kPieces.size();) {
        const std::size_t end = std::min(kPieces.find('|', at), kPieces.size());
        pieces.push_back(kPieces.substr(at, end - at));
        at = end + 1;
    }
    std::string text;
    for (auto count = random() % 24; count > 0; --count) {
        text += pieces[random() % pieces.size()];
        for (auto records = random() % 10 == 0 ? random() % 20 : 0; records > 0; --records) {
            text += kRecords[random() % std::size(kRecords)];
        }
    }
    return text;
}

/// Skips records without "a01" and moves the model to the same place; true when any was skipped.
bool skip(FieldReader& reader, testing::FieldModel& model, std::string_view text)
{
    const auto from = static_cast<std::size_t>(reader.position());
    const bool skipped = reader.skipRecordsWithout("a01");
    const auto to = static_cast<std::size_t>(reader.position());
    EXPECT_EQ(skipped, to != from);
    EXPECT_EQ(text.substr(from, to - from).find("a01"), std::string_view::npos);
    if (to == from) {
        return false;
    }
    EXPECT_TRUE(model.passTo(to));  // only whole records were skipped, and one is left to be read
    return true;
}

TEST(FieldReader, AgreesWithTheObviousReaderOnAnyMixOfCalls)
{
    std::mt19937 random(20240501);
    int skips = 0;
    for (int round = 0; round < 20000; ++round) {
        const std::string text = randomText(random);
        const std::size_t window = 16 + random() % (round % 2 == 0 ? 40 : 900);
        SCOPED_TRACE(::testing::PrintToString(text) + " window " + std::to_string(window));
        testing::Dribble source(text, 1 + random() % (round % 3 == 0 ? 40 : 900));
        FieldReader reader(source, window);
        testing::FieldModel model(text);
        for (bool failed = false; !failed && !HasFailure();) {
            std::array<std::string_view, 4> fields;
            std::size_t count = 1 + random() % fields.size();
            const auto call = random() % 8;
            if (call == 0) {
                ASSERT_EQ(reader.atEnd(), model.atEnd());
                continue;
            }
            if (call == 1) {
                skips += skip(reader, model, text) ? 1 : 0;
                continue;
            }
            if (call == 2) {
                const bool nothingLeft = reader.atEndButBlankLines();
                ASSERT_EQ(nothingLeft, model.onlyBlankLinesLeft());
                if (nothingLeft) {
                    break;
                }
                continue;
            }
            if (call < 6 && reader.recordInWindow(fields)) {
                count = fields.size();
            } else {
                try {
                    reader.fields(std::span(fields).first(count));
                } catch (const RuntimeError& error) {
                    ASSERT_EQ(error.value(), 62);
                    failed = true;
                }
            }
            bool expectedFailure = false;
            for (std::size_t i = 0; i < count && !expectedFailure; ++i) {
                const auto expected = model.field();
                expectedFailure = !expected;
                if (expected && !failed) {
                    ASSERT_EQ(fields[i], *expected);
                }
            }
            ASSERT_EQ(failed, expectedFailure);
            ASSERT_EQ(reader.insideQuote(), model.insideQuote);
        }
    }
    EXPECT_GT(skips, 500);
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

/// A quoted field of `length` bytes, made as it is read.
class HugeField : public ByteSource {
  public:
    HugeField(std::uint64_t length, std::string_view tail) : length_(length), tail_(tail) {}
    std::size_t read(std::span<char> buffer) override
    {
        if (at_ > length_) {
            return tail_.read(buffer);
        }
        const auto count =
            static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), length_ + 1 - at_));
        std::memset(buffer.data(), 'x', count);
        if (at_ == 0) {
            buffer[0] = '"';
        }
        at_ += count;
        return count;
    }
    [[nodiscard]] std::uint64_t size() const override { return 0; }

  private:
    std::uint64_t length_;
    std::uint64_t at_ = 0;
    TextSource tail_;
};

TEST(FieldReader, ReadsOneHundredMegabytesOfOneField)
{
    constexpr std::size_t kLength = 100'000'000;
    HugeField whole(kLength, "\"\r\nnext");
    FieldReader reader(whole);
    const std::string_view field = reader.field();
    EXPECT_EQ(field.size(), kLength);
    EXPECT_EQ(field.find_first_not_of('x'), std::string_view::npos);
    EXPECT_EQ(reader.field(), "next");
    EXPECT_EQ(reader.position(), 1 + kLength + 3 + 4);

    HugeField open(kLength, "");
    FieldReader unclosed(open);
    EXPECT_THROW((void)unclosed.field(), RuntimeError);
    EXPECT_TRUE(unclosed.insideQuote());
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
