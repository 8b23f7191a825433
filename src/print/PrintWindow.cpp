#include "print/PrintWindow.hpp"

#include <algorithm>

namespace karvel {

bool preparePrint(PrintPage& page, std::string_view codes, const SignImages& images, Pictures& pictures,
                  const LastResult& last, UserInterface& ui)
{
    if (codes.empty()) {
        ui.ask(
            {.title = "Attenzione", .text = "Non ci sono geroglifici nel display", .icon = Icon::Critical});
        return false;
    }
    page.fill(codes, images, pictures, last);
    return true;
}

std::string PrintWindow::remarks(int height) const
{
    std::string lines;
    if (textIncluded_ && !page_.textEmpty()) {
        if (!page_.textBelongsToPhrase()) {
            lines += "Il testo non viene da una ricerca di questa frase.\n";
        }
        if (!page_.textBeginsHere(height)) {
            lines += "Il testo comincia sul foglio seguente.\n";
        }
    }
    return lines;
}

void PrintWindow::toggleText()
{
    textIncluded_ = !textIncluded_;
    page_.setLabelVisible(textIncluded_);
}

void PrintWindow::scrolled(int value)
{
    maximum_ = textIncluded_ ? kLowestWithText : kLowestSignsOnly;
    position_ = std::clamp(value, 0, maximum_);
    page_.moveRow(position_);
    page_.moveLabel(position_ + PrintPage::kLabelDrop);
}

bool PrintWindow::startPrint(const LastResult& last, UserInterface& ui)
{
    page_.setText(last);
    if (textIncluded_ && page_.textEmpty()) {
        const Button answer =
            ui.ask({.title = "Attenzione:",
                    .text = "Non è stata effettuata la ricerca, perciò non vi è testo da stampare ! !\r"
                            "Continuare ugualmente ?",
                    .icon = Icon::Exclamation,
                    .buttons = Buttons::YesNo});
        if (answer == Button::No) {
            return false;
        }
    }
    return true;
}

}  // namespace karvel
