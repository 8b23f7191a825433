#include "compose/Palette.hpp"

#include <gtest/gtest.h>

#include "base/SignRepertoire.hpp"
#include "compose/Composer.hpp"
#include "text/PhraseText.hpp"

namespace karvel {
namespace {

using testing::Composer;

TEST(Palette, LoadsFiftyThreeKeysOfEachCategory)
{
    Composer composer;
    for (int page = 1; page <= 14; ++page) {
        composer.palette.changed(page);
        const std::string letter(1, "ABCDEFGHILMNOP"[page - 1]);
        const std::string small(1, "abcdefghilmnop"[page - 1]);
        EXPECT_EQ(composer.palette.pageText(), letter);
        EXPECT_EQ(composer.palette.codeOf(8), small + "09");
        EXPECT_EQ(composer.palette.codeOf(9), small + "10");
        EXPECT_EQ(composer.palette.picture(52), "C:\\Programmi\\Karvel\\GR\\" + small + "53.gif");
    }
}

TEST(Palette, AKeyWithoutAnImageIsBlankAndStillHasItsCode)
{
    Composer composer;
    composer.palette.changed(1);
    composer.act("hide:b02");
    composer.palette.changed(2);
    EXPECT_EQ(composer.palette.picture(1), "");  // nothing of page a shines through
    EXPECT_EQ(composer.palette.picture(2), composer.images.path("b03"));
    composer.palette.press(1);
    EXPECT_EQ(composer.display.DisplayCodes(), "b02");
}

TEST(Palette, APageCanBeTyped)
{
    const struct {
        const char *typed, *shown;
        int page;
    } kCases[] = {
        {"a", "A", 1},  {"i", "I", 9}, {"L", "L", 10}, {"p", "P", 14}, {"hotep", "H", 8}, {"j", "L", 10},
        {"K", "L", 10},  // there is no page J or K
        {"z", "A", 1},  {"", "A", 1},  {"7", "A", 1},  {"@", "A", 1},  {"è", "A", 1},     {"[", "A", 1},
    };
    for (const auto& [typed, shown, page] : kCases) {
        Composer composer;
        composer.palette.changed(5);
        composer.palette.typed(typed);
        composer.palette.enterPage(typed);
        EXPECT_EQ(composer.palette.pageText(), shown) << typed;
        EXPECT_EQ(composer.palette.CurrentPage(), page) << typed;
        EXPECT_EQ(composer.palette.codeOf(0), signCode(static_cast<std::size_t>(page), 0)) << typed;
        EXPECT_EQ(composer.ui.busyDepth, 0);
    }
}

TEST(Palette, SteppingBackStoresItsCodesInRowOne)
{
    Composer composer;
    composer.palette.changed(3);
    composer.palette.stepBack();
    EXPECT_EQ(composer.ui.beeps, 1);
    EXPECT_EQ(composer.palette.pageText(), "2");
    EXPECT_EQ(composer.palette.CodeTable(1, 52), "b53");
    composer.palette.press(0);  // page 2 was never loaded: the key has no code, nothing is composed
    EXPECT_EQ(composer.display.DisplayCodes(), "");
    composer.act("hide:a03");
    EXPECT_THROW(composer.palette.stepBack(), RuntimeError);
    EXPECT_EQ(composer.ui.busyDepth, 0);
}

TEST(Palette, SeveralSignsAreInsertedWholeOrNotAtAll)
{
    const std::vector<std::string> signs = {"c01", "c02", "c03"};
    Composer composer;
    composer.act("k81");
    EXPECT_TRUE(composer.palette.pressCodes(signs));
    const std::string full = composer.display.DisplayCodes();
    EXPECT_EQ(composer.display.signs(), 84U);
    composer.act("undo");  // one state was saved, before the first
    EXPECT_EQ(composer.display.DisplayCodes(), full.substr(0, 81 * kCodeLength));
    composer.act("k1");
    composer.ui.expect(testing::kLimitBox);
    EXPECT_FALSE(composer.palette.pressCodes(signs));
    EXPECT_EQ(composer.display.signs(), 82U);
    Composer start;
    EXPECT_TRUE(start.palette.pressCodes(signs));
    EXPECT_EQ(start.state(), "c01-c03 | 3 6 0 | c01-c02 c03*");
}

TEST(Palette, TheMissingSignKeySwitchesTheSearchOnOnce)
{
    constexpr int kPage = 14;
    constexpr std::size_t kKey = 46;
    Composer composer;
    composer.press(1, 0);
    EXPECT_EQ(composer.palette.codePanel(), "Codice: a01");
    composer.ui.expect(
        {.title = "Informazione",
         .text = "Hai selezionato un carattere speciale che attiva la ricerca 'Geroglifico mancante'",
         .icon = Icon::Information});
    composer.press(kPage, kKey);
    EXPECT_TRUE(composer.mode.on);
    EXPECT_EQ(composer.palette.codePanel(), "Codice: p47");
    EXPECT_EQ(composer.state(), "a01 p47 | 2 3 0 | a01 p47*");
    composer.press(1, 1);
    composer.ui.expect({.title = "Info",
                        .text =
                            "Questo carattere sostituisce già uno o più geroglifici. Pertanto è sufficiente "
                            "premerlo una volta.",
                        .icon = Icon::Information});
    composer.press(kPage, kKey);
    EXPECT_EQ(composer.state(), "a01 p47 a02 | 3 6 0 | a01 p47 a02*");
    EXPECT_EQ(composer.palette.CurrentSignCode(), "p47");
}

TEST(SignRepertoire, KnowsEverySignByBothItsNames)
{
    const SignRepertoire& repertoire = SignRepertoire::standard();
    EXPECT_EQ(repertoire.signs().size(), kPages * kKeys - 1);  // every key but the missing sign's
    for (const SignInfo& sign : repertoire.signs()) {
        EXPECT_TRUE(isSignCode(sign.code));
        EXPECT_EQ(repertoire.byCode(sign.code), &sign);
        EXPECT_EQ(repertoire.byGardiner(sign.gardiner), &sign);
        EXPECT_TRUE(sign.character >= 0x13000 && sign.character <= 0x1342F) << sign.code;
    }
    EXPECT_EQ(repertoire.byCode(kMissingSign), nullptr);
    EXPECT_EQ(signCaption("e16"), "e16 · G17 · civetta · m · U+13153");
    EXPECT_EQ(signCaption("a01"), "a01 · A1 · uomo seduto · i, s, rmT · U+13000");
    EXPECT_EQ(signCaption("a02"), "a02 · A2 · uomo con la mano alla bocca · U+13001");
    EXPECT_EQ(signCaption("p47"), "p47 · segno mancante");
    EXPECT_EQ(signCaption("zz"), "zz");
}

TEST(SignRepertoire, ReadsGardinerNumbers)
{
    const struct {
        const char *numbers, *codes, *unknown;
    } kCases[] = {
        {"F35-I9-D21", "d51f21b47", ""},
        {"f35", "d51", ""},
        {"F35-Z999", "", "Z999"},
        {"F35-", "", ""},
        {"", "", ""},
        {"F35 -I9", "", "F35 "},
    };
    for (const auto& [numbers, codes, unknown] : kCases) {
        std::string notFound;
        EXPECT_EQ(codesOfGardiner(numbers, notFound).value_or(""), codes) << numbers;
        EXPECT_EQ(notFound, unknown) << numbers;
    }
}

}  // namespace
}  // namespace karvel
