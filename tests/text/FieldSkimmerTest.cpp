#include "text/FieldSkimmer.hpp"

#include <gtest/gtest.h>

#include <random>

#include "support/FieldModel.hpp"

namespace karvel {
namespace {

/// Mostly records of the usual form, some of them with the text, and now and then something else.
std::string randomFile(std::mt19937& random)
{
    static const std::string kOdd[] = {"\n",
                                       "\"",
                                       "\r\n",
                                       "\"a\",\"b\"\r\n",
                                       "bare\r\n",
                                       "\"\r\n\"\r\n",
                                       "\"x\" \r\n",
                                       "\"a\"\r\"b\"\r\n",
                                       "\"left\"\r\n\"alone\"\r\n",
                                       "\"b02c03\"x\r\n"};
    const auto odd = random() % 3;
    const auto often = 2 + random() % 200;
    std::string file;
    for (auto records = random() % 300; records > 0; --records) {
        const std::string signs =
            random() % often == 0 ? "a01b02c03" : "b02c0" + std::to_string(random() % 9);
        file += "\"" + signs + "\"\r\n\"" + std::string(random() % 12, 'x') +
                "\"\r\n\"\"\r\n\"due\r\nrighe\"\r\n";
        if (odd == 0 && random() % 60 == 0) {
            file += kOdd[random() % std::size(kOdd)];
        }
    }
    return file;
}

SkimShape randomShape(std::mt19937& random)
{
    return {.least = 0,
            .region = 64 + random() % 900,
            .reach = 8 + random() % 100,
            .helpers = static_cast<unsigned>(random() % 3)};
}

/// By the slow and obvious reader. `fields` hold no other quotes than those around them.
template <typename Fits>
bool hasWanted(std::string_view fields, std::string_view text, const Fits& fits)
{
    for (testing::FieldModel model(fields); !model.atEnd();) {
        const std::string field = model.field().value_or("");
        if (("\"" + field + "\"").find(text) != std::string::npos && fits(field)) {
            return true;
        }
    }
    return false;
}

TEST(FieldSkimmer, PassesOverWholeRecordsWithoutTheText)
{
    std::mt19937 random(20261121);
    std::size_t passed = 0;
    std::size_t all = 0;
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
        const std::string file = randomFile(random);
        static const std::string kTexts[] = {"01b", "a01b02c03", "\"a01", "c03\"", "\"a01b02c03\"", "\"\""};
        const std::string& text = kTexts[random() % std::size(kTexts)];
        const SkimShape shape = randomShape(random);
        SCOPED_TRACE("round " + std::to_string(round));
        const TextSource source(file);
        // Now and then only some of the fields that hold it are wanted.
        const bool picky = random() % 4 == 0;
        const auto fits = [&](std::string_view field) { return !picky || field.size() > 3; };
        FieldSkimmer skimmer(source, {text, fits}, shape);
        testing::FieldModel model(file);
        for (bool more = true; more && !model.onlyBlankLinesLeft();) {
            const std::size_t from = model.position();
            const auto to = static_cast<std::size_t>(skimmer.pass(from));
            if (to != from) {
                ASSERT_GT(to, from);
                ASSERT_FALSE(hasWanted(std::string_view(file).substr(from, to - from), text, fits));
                ASSERT_TRUE(model.passTo(to));  // whole records, and one is left to be read
                passed += to - from;
            }
            for (int field = 0; field < 4 && more; ++field) {
                more = model.field().has_value();
            }
        }
        all += file.size();
    }
    EXPECT_GT(passed, all / 3);
}

/// Promises more than there is, and breaks where it ends.
class Broken : public TextSource {
  public:
    Broken(std::string_view text, bool throws) : TextSource(text), throws_(throws) {}
    [[nodiscard]] std::uint64_t size() const override { return 4 * TextSource::size(); }
    std::size_t readAt(std::uint64_t offset, std::span<char> buffer) const override
    {
        const std::size_t count = TextSource::readAt(offset, buffer);
        if (count == 0 && throws_) {
            throw RuntimeError(ErrorNumber::DeviceIo);
        }
        return count;
    }

  private:
    bool throws_;
};

TEST(FieldSkimmer, LeavesWhatCannotBeReadToTheReader)
{
    std::string file;
    for (int i = 0; i < 4000; ++i) {
        file += "\"b02\"\r\n\"due\"\r\n\"\"\r\n\"\"\r\n";
    }
    for (const bool throws : {false, true}) {
        const Broken source(file, throws);
        FieldSkimmer skimmer(source, {"a01", [](std::string_view) { return true; }},
                             {.least = 0, .region = 1000, .reach = 100, .helpers = 2});
        std::uint64_t at = 0;
        for (std::uint64_t to = skimmer.pass(at); to != at; to = skimmer.pass(at)) {
            ASSERT_LT(to, file.size());
            at = to;
        }
        EXPECT_GT(at, file.size() - 3000);
    }
}

TEST(FieldSkimmer, IsForLargeFilesAndTextsOfOneField)
{
    const TextSource source("\"b02\"\r\n");
    const testing::Dribble device("\"b02\"\r\n", 4);
    EXPECT_TRUE(FieldSkimmer::fits(source, "a01", {.least = 7}));
    EXPECT_FALSE(FieldSkimmer::fits(source, "a01", {.least = 8}));
    EXPECT_FALSE(FieldSkimmer::fits(source, "", {.least = 0}));
    EXPECT_TRUE(FieldSkimmer::fits(source, "\"b02\"", {.least = 0}));
    EXPECT_FALSE(FieldSkimmer::fits(source, "b\"02", {.least = 0}));
    EXPECT_FALSE(FieldSkimmer::fits(device, "a01", {.least = 0}));
}

}  // namespace
}  // namespace karvel
