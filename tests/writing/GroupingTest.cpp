// How signs are grouped into blocks, and how a layout is written down.
#include "writing/Grouping.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "base/SignRepertoire.hpp"
#include "text/PhraseText.hpp"
#include "writing/ManuelDeCodage.hpp"

namespace karvel {
namespace {

// Words, names, titles and numbers as printed grammars set them. The rules were made while looking at the
// first table; the others were kept aside.
constexpr const char* kLookedAt =
    "F35-I9:D21 D2:Z1 F21-G17 I10:D46-M17-N35 D21:D36-N5 L1:D21 S34-U28-S29 M23-X1:N35-A43 R4:X1*Q3 "
    "O1:D21-D54 N25:X1*Z1 V28-N35:D36 Aa1:D21 Aa1*X1:I9 N35:X1 N35:X1*Z4 Q3-G43 X1:G43 V13:G43 G39-Z1 "
    "G14-X1:B1 M17-X1:I9-A1 M17-Y5:N35 Q3:X1-V28 Q1:D4-A40 O9-X1:H8-B1 G26-X1:Z4-A40 S29-X1:N37-E20 "
    "F34:Z1 D1:Z1 D4:X1 O29:D36 G36:D21-X1 O34:Z1-A1 T22-N35-A1 M4-X1:Z1 N16:N16 R8-F35 I6-G17-X1:O49 "
    "R19-X1:O49 Y5:N35-F35-I9:D21 R8-O6-X1:O1 R8-S43 F4:X1*Z1 M42:N35 T21:D36 D54:X1 G35-N29:D54 "
    "N35:I10-O34:G37 G43-D58-N35:N5 M29-G17-Y1 V28-N5-V28 U7:D21-M17-M17 Y3-A1 M17-G43-I9 G17-Aa1:X1 "
    "D21:D37 F12-S29-D21 N35:X1*X1 M17-X1:D21-G43-N36 Z1*Z1*Z1 V20*V20*V20 V1*V1 T28:D21 S29-F21-G17 "
    "N31:X1*Z1 W11:D21-V28-N2 F26:N35-W24:O1 D21:N35-I9 I10:D46-N35:I9 D36:N35-D54 V28-W24:N35-U36 "
    "B1:Z2 N35A-Z2 E1:Z2 O34:N35:Z2 X1:I9 N35:D36-Z1 W10:Z1 M17-D21:Q3-W21 V28-D21:Z1 N5-Y5:N35-L1 "
    "Aa1-G43-I9-G43 M17-Y5:N35-R4:X1*Q3 S29-D58-N5 D58-N35:D21-M17-M30 ";
constexpr const char* kKeptAside =
    "O1:Z1 D21:N35 I10:D46 V30:X1 N5:Z1 S34-N35:Aa1 M23-X1:N35 M23-X1:R4-X8 R8-V13:D21 O1:D21-X1:D54 "
    "O49:X1*Z1 W24:V31 Aa1:X1 M3:X1*Z1 X1:N35 Q3:N35 Q3*X1:N1 S29-N35:Z2 V13:N35 G39-X1:B1 M17-X1:I9 "
    "M17-X1:N35-N5 M17-Y5:N35-A40 Q3:X1-V28-A40 Q1-X1:H8-B1 M17-N35:Q3-G43-E16 Aa1:N35-M23-G43 "
    "N35:X1-R24-B1 D28:Z1 D4:D21 D21:Z1 G36:D21 S38-N29 N41:X1-B1 T22-N35:X1-B1 O4:D21-G43-N5:Z1 "
    "V30:N16:N16 G39-N5 U23-D58-N26:O49 O28-W24:O49 O6-X1:O1 U36-R8 F4:D36 E34:N35 F31-S29 N28:D36 "
    "M18-X1:D54 N37:D21-M17-G37 D58-M17-N35:G37 R14-X1:N25 N35:M3-Aa1:X1-A24 U7:D21-M17 D21:Aa1-Y1 "
    "Y3-A1:Z2 M17-M17 D35:N35 X8-S34 W17-N35:X1 O1:O29 S29-D58-V31-I4 V20*V20-Z1*Z1 Z1*Z1*Z1:Z1*Z1 "
    "D21:D36-A40 S43-D46:X1-A2 D28:X1-A9 D36:X1*Z1 Aa11:D36-X1-Y1 N35:X1-I9 D4:N35-I9 V13:N35:Z2 "
    "W14-S29-A2 A1:Z2 N25:Z2 Aa1:X1-Y1:Z2 G29-Z1 Q3:I9 G41-G1 S29-G17-N5 D58-V31-A1 X1:Z2 N5-C10-V30 "
    "N5-L1-D28 G26-F31-S29 N5-F31-S29-S29 D36-Q3:D21-D54 S29-N35:D58-Y1 "
    "M17-G1-G43-A19 A21-A1:Z2 S29-D21-A21 D58-G1-V31-A1 G29-V31-A1 V31-G1-X1:Z1 D21-D36:X1 "
    "M17-Q3:X1-W24 M17-O34:X1 M17-G1-X1:Z1 T3-I10 I10-S29-D21:X1-O49 D58-N35:D21 F40-G43-X1:Y1 "
    "U28-G1-G43 Z11-G17-G43 M17-G17-N35 D21-N35:Q3 G40-G1-M17-M17 X1:G1-M17-M17 N35-G1-N35 D35:X1*Z4 "
    "X1:N35-N16 N16:N23*Z1-N35 O29:D36-Y1 S29-N35:D58-A1 O1:D21-X1:N5 N37:N35A-N5 M8:X1*N5 N11:N14-N5 "
    "V20-Z1*Z1 V20*V20:V20*V20 Z1*Z1*Z1:Z1*Z1*Z1 Z1*Z1:Z1*Z1 Z1*Z1*Z1*Z1:Z1*Z1*Z1 M12-G1-D36 "
    "V1*V1*V1-V20-Z1*Z1*Z1 R8-R8-R8 R8-R8-R8-Z2 Q3:X1-V28-A40-V30 V30-U23-D58-N26:O49 R4:X1*Q3-X1 "
    "M23-X1:R4-X8-Q1:D4-A40-V30-R11 W17-N35:X1-R14-X1:X1-Z2 G5-Z1 G7-G5 D2:D21 D2:Q3 D1:Q3 "
    "T28:D21-V28-D58-W3 N5:Z1-A40 M17-Y5:N35-N5:Z1 N35-D28:Z1-N35 M17-U1-F39-Aa1-M17-M17 "
    "U1-Aa11:D36-P8 Aa11:D36-P8 R4:X1*Q3-Q1:D4-A40 M23-X1:N35-O34 W24*W24*W24:N1 I9:D21-X1 "
    "V28-N35:X1-A40 V28-N41:X1-B1 F18:Y1 V28-G43-X1:F51 P8-Aa1:D21-G43 D58-W10:X1 O6-X1:O1-V28-X1 "
    "C10-X1:H6 Aa1-S29-I9 N29:D21-S29-Q6 E34:N35-N35 U36-I9 U36-V30:X1 S38-N29:X1-S40 ";

std::string blocksOfGardiner(std::string word)
{
    std::ranges::replace_if(
        word, [](char each) { return each == ':' || each == '*'; }, '-');
    std::string unknown;
    const auto codes = codesOfGardiner(word, unknown);
    return codes ? manuelDeCodage(blocksOf(*codes)) : "unknown: " + unknown;
}

TEST(Grouping, SetsWordsAsTheyArePrinted)
{
    for (const char* const table : {kLookedAt, kKeptAside}) {
        std::istringstream words(table);
        int all = 0;
        int right = 0;
        std::string wrong;
        for (std::string word; words >> word; ++all) {
            const std::string made = blocksOfGardiner(word);
            right += made == word ? 1 : 0;
            wrong += made == word ? "" : word + " is " + made + "\n";
        }
        EXPECT_GE(right * 100, all * 94) << right << " of " << all << "\n" << wrong;
    }
}

TEST(Grouping, KeepsEverySignInItsPlaceAndReadsBackWhatItPrints)
{
    const auto& signs = SignRepertoire::standard().signs();
    std::string codes = "p47p47";
    for (std::size_t i = 0; codes.size() < 6000; i = (i * 5 + 7) % signs.size()) {
        codes += signs[i].code;
        codes += i % 11 == 0 ? "p47" : i % 3 == 0 ? "o19" : i % 7 == 0 ? "h11" : "";
    }
    const Layout layout = blocksOf(codes);
    EXPECT_EQ(codes, codesOf(layout));
    std::string fault;
    EXPECT_EQ(layout, readManuelDeCodage(manuelDeCodage(layout), fault)) << fault;
    EXPECT_TRUE(blocksOf("").blocks.empty());
}

TEST(ManuelDeCodage, HasOneNormalForm)
{
    const struct {
        const char* written;
        const char* normal;
    } cases[] = {
        {"d51 - f21:b47 ", "F35-I9:D21"},
        {"((N35):(X1*(Z4)))", "N35:X1*Z4"},
        {"(N35:X1):N35", "N35:X1:N35"},
        {"M17*(N35:X1)", "M17*(N35:X1)"},
        {"(A1-N35:X1):Z2", "A1*(N35:X1):Z2"},
        {"(N35:X1)*(Q3*X1:N1)-?", "(N35:X1)*(Q3*X1:N1)-?"},
        {"A1 <-N5-Y5:N35-L1-> p47", "A1-<-N5-Y5:N35-L1->-?"},
    };
    for (const auto& [written, normal] : cases) {
        std::string fault;
        const auto layout = readManuelDeCodage(written, fault);
        ASSERT_TRUE(layout) << written << ": " << fault;
        EXPECT_EQ(normal, manuelDeCodage(*layout));
    }
}

TEST(ManuelDeCodage, TellsWhatIsWrong)
{
    const struct {
        std::string text;
        const char* fault;
    } cases[] = {
        {"", "nessun segno"},
        {" - ", "nessun segno"},
        {"A1:", "manca un segno"},
        {"A1)", "manca un segno"},
        {"A1-ZZ9", "segno sconosciuto: \"ZZ9\""},
        {"(A1:N35", "parentesi non chiusa"},
        {"<-A1", "\"<-\" senza \"->\""},
        {"A1->", "\"->\" senza \"<-\""},
        {"<-->", "un cartiglio vuoto"},
        {"<-A1-<-A1->->", "un cartiglio dentro un altro"},
        {std::string(9999, '('), "troppe parentesi una dentro l'altra"},
    };
    for (const auto& [text, expected] : cases) {
        std::string fault;
        EXPECT_FALSE(readManuelDeCodage(text, fault)) << text;
        EXPECT_EQ(expected, fault) << text;
    }
}

}  // namespace
}  // namespace karvel
