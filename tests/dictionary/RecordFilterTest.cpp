#include "dictionary/RecordFilter.hpp"

#include <gtest/gtest.h>

#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

constexpr std::size_t kRecords = 400;

/// Records of the same length, `count` of them.
std::string records(std::size_t count)
{
    std::string file;
    while (count-- > 0) {
        file += testing::record("b02c03", "due\r\nrighe", "", "nota, e altro");
    }
    return file;
}

const std::size_t kSize = records(1).size();

TEST(RecordFilter, SkipsAllButTheEndOfAFileWithoutTheText)
{
    for (const std::string text : {"a01", "\"c03", "\"a01b02c03\"", "02b\""}) {
        const RecordFilter::Result found = RecordFilter(text).scan(records(kRecords));
        EXPECT_EQ(found.skip % kSize, 0U) << text;
        EXPECT_LT(found.skip, (kRecords - 1) * kSize) << text;
        EXPECT_GT(found.skip, (kRecords - 15) * kSize) << text;
        EXPECT_GT(found.read, found.skip + kSize) << text;
    }
    EXPECT_EQ(RecordFilter("a01").scan(records(11)).skip, 0U);  // too few for a scan
    EXPECT_EQ(RecordFilter("a01").scan("").skip, 0U);
    // The first field is a line end, and what stands behind its closing quote belongs to no field.
    EXPECT_EQ(RecordFilter("a01").scan("\"\r\n" + records(kRecords)).skip, 0U);
}

TEST(RecordFilter, StopsBeforeTheFirstRecordThatMustBeRead)
{
    const struct {
        std::string_view text, record;
        bool tight;  ///< nothing but the records around this one is left to be read
    } kCases[] = {
        {"a01", "\"a01\"\r\n\"x\"\r\n\"\"\r\n\"\"\r\n", true},
        {"\"a01", "\"a01b02\"\r\n\"x\"\r\n\"\"\r\n\"\"\r\n", true},
        {"a01", "\"b02\"\r\n\"x\"\r\n\"\"\r\n\"a01\"\r\n", true},  // in which field is the reader's question
        {"a01", "\"b02\",\"x\",\"\",\"\"\r\n", false},
        {"a01", "b02\r\n\"x\"\r\n\"\"\r\n\"\"\r\n", false},
        {"a01", "\"b02\"\n\"x\"\r\n\"\"\r\n\"\"\r\n", false},
        {"a01", "\"b02\"\r\n\"x\"\r\"\"\r\n\"\"\r\n", false},
        {"a01", "\"b02\" \r\n\"x\"\r\n\"\"\r\n\"\"\r\n", false},
        {"a01", " \"b02\"\r\n\"x\"\r\n\"\"\r\n\"\"\r\n", false},
        {"a01", "\"\r\n\"\r\n\"x\"\r\n\"\"\r\n\"\"\r\n", false},  // a field that is a line end
        {"a01", "\"b02\"x\"\r\n\"x\"\r\n\"\"\r\n\"\"\r\n", false},
        {"a01", "\r\n", false},
        {"a01", "\"b02", false},
    };
    for (const auto& [text, record, tight] : kCases) {
        // Every position of the record in its chunk.
        for (std::size_t before = 30; before < 60; ++before) {
            const std::size_t place = before * kSize;
            const std::string file = records(before) + std::string(record) + records(40);
            const RecordFilter::Result found = RecordFilter(std::string(text)).scan(file);
            ASSERT_EQ(found.skip % kSize, 0U) << record;
            ASSERT_LT(found.skip, place) << record;
            ASSERT_GT(found.read, place) << record;
            ASSERT_GT(found.skip, place - (tight ? 3 : 15) * kSize) << record;
            ASSERT_LT(found.read, place + (tight ? record.size() : 1024)) << record;
        }
    }
}

}  // namespace
}  // namespace karvel
