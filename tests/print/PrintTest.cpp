#include <gtest/gtest.h>

#include "print/PrintPage.hpp"
#include "print/PrintWindow.hpp"
#include "support/ScriptedUi.hpp"

namespace karvel {
namespace {

class Print : public ::testing::Test {
  protected:
    bool prepare(std::string_view codes)
    {
        return preparePrint(page_, codes, images_, pictures_, last_, ui_);
    }

    testing::FakePictures pictures_;
    testing::ScriptedUi ui_;
    SignImages images_;
    LastResult last_{.translation = "CASA", .note = "maschile", .foundCodes = ""};
    PrintPage page_;
    PrintWindow window_{page_};
};

TEST_F(Print, TakesTheFirstTwelveSigns)
{
    ui_.expect(
        {.title = "Attenzione", .text = "Non ci sono geroglifici nel display", .icon = Icon::Critical});
    EXPECT_FALSE(prepare(""));
    ASSERT_TRUE(prepare("a01a02a03a04a05a06a07a08a09a10a11a12a13"));
    EXPECT_EQ(page_.pic()[11].path, "C:\\Programmi\\Karvel\\GR\\a12.gif");
    EXPECT_EQ(page_.text(), "CASA\n\nmaschile");

    // A shorter phrase leaves nothing of the longer one; a missing image leaves its cell blank.
    pictures_.missing.insert("C:\\Programmi\\Karvel\\GR\\a02.gif");
    ASSERT_TRUE(prepare("a01a02"));
    EXPECT_EQ(page_.pic()[1].path, "");
    EXPECT_TRUE(page_.pic()[1].visible);
    EXPECT_FALSE(page_.pic()[2].visible);
    window_.close();
    EXPECT_FALSE(page_.pic()[0].visible);
}

TEST_F(Print, WidensTheRangeAtTheNextScroll)
{
    const struct {
        bool toggle;
        int scrolled, position, maximum;
    } kSteps[] = {{false, 9000, 4483, 4483}, {true, 9000, 5698, 5698}, {true, 5698, 4483, 4483}};
    for (const auto& [toggle, scrolled, position, maximum] : kSteps) {
        const int before = window_.maximum();
        if (toggle) {
            window_.toggleText();
        }
        EXPECT_EQ(window_.maximum(), before);
        window_.scrolled(scrolled);
        EXPECT_EQ(window_.position(), position);
        EXPECT_EQ(window_.maximum(), maximum);
        EXPECT_EQ(page_.rowTop(), position);
        EXPECT_EQ(page_.labelVisible(), maximum == 4483);
        EXPECT_EQ(window_.toggleCaption(),
                  maximum == 4483 ? "Stampa solo geroglifici" : "Geroglifici più testo");
    }
}

TEST_F(Print, SaysWhatIsToBeKnownAboutTheText)
{
    const std::string other = "Il testo non viene da una ricerca di questa frase.\n";
    const std::string next = "Il testo comincia sul foglio seguente.\n";
    const struct {
        const char* searched;
        int height;
        std::string remarks;
    } kCases[] = {
        {"a01a02", 1020, ""}, {"a01", 1020, other}, {"a01a02", 1019, next}, {"", 1019, other + next}};
    for (const auto& [searched, height, remarks] : kCases) {
        last_.phrase = searched;
        ASSERT_TRUE(prepare("a01a02"));
        EXPECT_EQ(window_.remarks(height), remarks);
    }
    window_.toggleText();
    EXPECT_EQ(window_.remarks(1019), "");  // no text is printed
}

TEST_F(Print, AsksBeforePrintingWithoutTheTextThatIsWanted)
{
    const MessageBox question{.title = "Attenzione:",
                              .text =
                                  "Non è stata effettuata la ricerca, perciò non vi è testo da stampare ! !\r"
                                  "Continuare ugualmente ?",
                              .icon = Icon::Exclamation,
                              .buttons = Buttons::YesNo};
    for (const Button answer : {Button::No, Button::Yes}) {
        ui_.expect(question, answer);
        EXPECT_EQ(window_.startPrint({}, ui_), answer == Button::Yes);
    }
    window_.scrolled(1200);
    EXPECT_TRUE(window_.startPrint({.translation = "", .note = "plurale", .foundCodes = ""}, ui_));
    EXPECT_EQ(page_.text(), "\n\nplurale");  // a note alone is text too
    EXPECT_EQ(page_.cellBox(1, 8391).top, 1200);
    EXPECT_FALSE(page_.textBeginsHere(2200));  // on the next page: no line has room on this one
    EXPECT_TRUE(page_.textBeginsHere(2300));
    EXPECT_EQ(page_.textBox(8391, 14000).top, 1200 + 300 + PrintPage::kLabelInset);
}

}  // namespace
}  // namespace karvel
