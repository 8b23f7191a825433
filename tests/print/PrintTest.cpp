#include <gtest/gtest.h>

#include "base/SignCode.hpp"
#include "print/PrintPage.hpp"
#include "print/PrintWindow.hpp"
#include "support/ScriptedUi.hpp"

namespace karvel {
namespace {

using testing::FakePictures;
using testing::ScriptedUi;

constexpr int kA4 = 11906;  // widths of paper
constexpr int kLetter = 12240;

std::string phrase(std::size_t signs)
{
    std::string codes;
    for (std::size_t sign = 0; sign < signs; ++sign) {
        codes += signCode(1, sign);
    }
    return codes;
}

class Print : public ::testing::Test {
  protected:
    bool prepare(std::string_view codes)
    {
        return preparePrint(page_, codes, images_, pictures_, last_, ui_);
    }

    FakePictures pictures_;
    ScriptedUi ui_;
    SignImages images_;
    LastResult last_{.translation = "CASA", .note = "maschile", .foundCodes = ""};
    PrintPage page_;
    PrintWindow window_{page_};
};

TEST_F(Print, NeedsSigns)
{
    ui_.expect(
        {.title = "Attenzione", .text = "Non ci sono geroglifici nel display", .icon = Icon::Critical});
    EXPECT_FALSE(prepare(""));
    EXPECT_EQ(page_.visibleSigns(), 0U);
}

TEST_F(Print, TakesTheFirstTwelveSigns)
{
    ASSERT_TRUE(prepare(phrase(15)));
    EXPECT_EQ(page_.visibleSigns(), 12U);
    EXPECT_EQ(page_.pic()[0].path, "C:\\Programmi\\Karvel\\GR\\a01.gif");
    EXPECT_EQ(page_.pic()[11].path, "C:\\Programmi\\Karvel\\GR\\a12.gif");
    EXPECT_EQ(page_.text(), "CASA\n\nmaschile");

    // A shorter phrase leaves nothing of the longer one; a missing image leaves its cell blank.
    pictures_.missing.insert("C:\\Programmi\\Karvel\\GR\\a02.gif");
    ASSERT_TRUE(prepare(phrase(3)));
    EXPECT_EQ(page_.visibleSigns(), 3U);
    EXPECT_EQ(page_.pic()[1].path, "");
    EXPECT_TRUE(page_.pic()[1].visible);

    window_.close();
    EXPECT_EQ(page_.visibleSigns(), 0U);
}

TEST_F(Print, NamesTheOtherChoiceAndWidensTheRangeAtTheNextScroll)
{
    ASSERT_TRUE(prepare("a01"));
    EXPECT_EQ(window_.toggleCaption(), "Stampa solo geroglifici");
    window_.scrolled(4000);
    window_.toggleText();
    EXPECT_EQ(window_.toggleCaption(), "Geroglifici più testo");
    EXPECT_FALSE(page_.labelVisible());
    EXPECT_EQ(window_.maximum(), 4483);
    window_.scrolled(4483);
    EXPECT_EQ(window_.maximum(), 5698);
    window_.scrolled(5698);
    EXPECT_EQ(window_.position(), 5698);
    EXPECT_EQ(page_.rowTop(), 5698);

    window_.toggleText();
    EXPECT_TRUE(page_.labelVisible());
    EXPECT_EQ(window_.position(), 5698);
    window_.scrolled(5698);
    EXPECT_EQ(window_.maximum(), 4483);
    EXPECT_EQ(window_.position(), 4483);
    EXPECT_EQ(page_.rowTop(), 4483);
    EXPECT_EQ(window_.previewTextTop(), 5083);
}

TEST_F(Print, AsksBeforePrintingWithoutTheTextThatIsWanted)
{
    const MessageBox question{.title = "Attenzione:",
                              .text =
                                  "Non è stata effettuata la ricerca, perciò non vi è testo da stampare ! !\r"
                                  "Continuare ugualmente ?",
                              .icon = Icon::Exclamation,
                              .buttons = Buttons::YesNo};
    last_ = {};
    ASSERT_TRUE(prepare("a01"));
    ui_.expect(question, Button::No);
    EXPECT_FALSE(window_.startPrint(last_, ui_));
    ui_.expect(question, Button::Yes);
    EXPECT_TRUE(window_.startPrint(last_, ui_));
    window_.toggleText();
    EXPECT_TRUE(window_.startPrint(last_, ui_));  // nobody misses the text now

    // A search made while the window is open is printed; a note alone is text too.
    window_.toggleText();
    last_.note = "plurale";
    window_.scrolled(1200);
    EXPECT_TRUE(window_.startPrint(last_, ui_));
    EXPECT_EQ(page_.text(), "\n\nplurale");
    EXPECT_EQ(page_.labelTop(), 1500);
}

TEST_F(Print, LaysTwelveCellsInARowThatFitsThePaper)
{
    window_.scrolled(2000);
    ASSERT_TRUE(window_.startPrint(last_, ui_));
    for (const int paper : {kA4, kLetter, 8391 /* A5 */}) {
        const int width = paper - 2 * PrintPage::kMargin;
        for (std::size_t cell = 0; cell < PrintPage::kCells; ++cell) {
            const SheetBox box = page_.cellBox(cell, width);
            EXPECT_EQ(box.width, box.height);
            EXPECT_EQ(box.top, 2000);
            EXPECT_LE(box.right(), width) << paper;
            EXPECT_LE(box.bottom(), page_.textBox(width, 14000).top) << paper;
            if (cell > 0) {
                EXPECT_LE(page_.cellBox(cell - 1, width).right(), box.left) << paper;
            }
        }
    }
    EXPECT_EQ(page_.cellBox(0, kA4 - 2 * PrintPage::kMargin).width, PrintPage::kCellSide);
}

}  // namespace
}  // namespace karvel
