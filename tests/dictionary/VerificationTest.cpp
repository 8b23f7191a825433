#include "dictionary/Verification.hpp"

#include <gtest/gtest.h>

#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

TEST(Verification, NamesTheLineOfTheFirstDoubtfulRecord)
{
    const std::string good = testing::record("a01p19", "uno");
    const std::string kSigns = "il campo dei segni non è una sequenza di codici: ";
    const std::string kQuote = "virgolette aperte e mai chiuse";
    const std::string kCut = "voce incompleta: il file finisce prima del quarto campo";
    // The first chunk that is read ends between a CR and its LF, when the starts of 4097 lines are forgotten.
    const auto repeated = [](int times, std::string_view text) {
        std::string all;
        for (; times > 0; --times) {
            all += text;
        }
        return all;
    };
    const std::string lines = repeated(19, "a01") + " \r\n" + repeated(4095, repeated(20, "a01") + "  \r\n") +
                              repeated(4, "a01\r\n");
    const struct {
        std::string file;
        std::uint64_t records, line;  // line 0: no fault
        std::string reason;
    } cases[] = {
        {"", 0, 0, ""},
        {good + good, 2, 0, ""},
        {good + "a01,uno,,\"due\r\nrighe\"\r\n\r\n", 2, 0, ""},  // a field may run over lines
        {good + "\"a54\"\r\n\"x\"\r\n\"\"\r\n\"\"\r\n" + good, 1, 5, kSigns + "\"a54\""},
        {"a01,b,c,d\na0,b,c,d\n", 1, 2, kSigns + "\"a0\""},
        {"a01,b,c,d\ra02,b,c,d\rj01,b,c,d\r", 2, 3, kSigns + "\"j01\""},
        {"a01,b,c,d\r\na02,b,c,d\nA03,b,c,d\r", 2, 3, kSigns + "\"A03\""},
        {"a01,b,c,d,a02,b,c,d\r\na01p,b,c,d", 2, 2, kSigns + "\"a01p\""},
        {"a01,b,c,d,,b,c,d", 1, 1, kSigns + "\"\""},
        {good + "\r\n" + good, 1, 5, kSigns + "\"\""},  // an empty line shifts all that follows
        {good + "\"a02\"\r\n\"due\"\r\n", 1, 5, kCut},
        {good + good + "\"a02\"\r\n\"due\"\r\n\"\"\r\n\"senza fine\r\n", 2, 9, kQuote},
        // A quote that is not closed swallows the next one: the fault is where it stands, not where it shows.
        {good + "\"a02\"\r\n\"due\r\n\"\"\r\n\"\"\r\n" + good + good, 1, 5, kQuote},
        {good + "\"a02\"\r\n\"due\"\r\n\"\"\r\n\"nota\r\n" + good + good, 1, 5, kQuote},
        {good + "\"a02\"\r\n\"due\r\n\"\"\r\n\"\"\r\n", 1, 5, kCut},
        {good + "\"a02\r\n\"due\"\r\n\"\"\r\n\"\"\r\n" + good, 1, 5, kQuote},
        {lines + "\"a01", 1025, 4101, kQuote},
        {good + "\"perch\xE9\",b,c,d", 1, 5, kSigns + "\"perché\""},
        {"\"" + std::string(500, 'x') + "\",b,c,d", 0, 1, kSigns + "\"" + std::string(40, 'x') + "\""},
    };
    for (const auto& [file, records, line, reason] : cases) {
        TextSource source(file);
        const Verification found = verify(source);
        EXPECT_EQ(found.records, records) << file;
        EXPECT_EQ(found.fault ? found.fault->line : 0, line) << file;
        EXPECT_EQ(found.fault ? found.fault->reason : "", reason) << file;
    }
}

TEST(Verification, TellsRecordsThatStandTwice)
{
    const std::string two = testing::record("a02", "uno");
    const std::string file = testing::record("a01", "uno") + testing::record("a01", "Uno") +
                             "a01,uno,x,y\r\n" + two + two + testing::record("a01", "uno", "z");
    TextSource source(file);
    std::string told;
    for (const Double& each : verify(source).doubles) {
        told += std::to_string(each.line) + "=" + std::to_string(each.first) + " ";
    }
    EXPECT_EQ(told, "9=1 14=10 18=1 ");
}

TEST(Verification, CountsLinesOfALongFile)
{
    std::string file;
    for (int i = 0; i < 30000; ++i) {
        file += testing::record("a01", "voce");
    }
    file += "x\r\n";
    TextSource source(file);
    const Verification found = verify(source);
    EXPECT_EQ(found.records, 30000U);
    ASSERT_TRUE(found.fault);
    EXPECT_EQ(found.fault->line, 120001U);
}

}  // namespace
}  // namespace karvel
