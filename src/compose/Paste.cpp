#include "compose/Paste.hpp"

#include "text/PhraseText.hpp"

namespace karvel {

namespace {

constexpr std::size_t kToldAtMost = 12;  // a whole page pasted by mistake must not fill the screen

std::string listed(const std::vector<std::string>& unknown)
{
    std::string text;
    for (std::size_t i = 0; i < unknown.size() && i < kToldAtMost; ++i) {
        text += (i == 0 ? "" : ", ") + unknown[i];
    }
    return unknown.size() > kToldAtMost ? text + " ..." : text;
}

}  // namespace

void pastePhrase(Palette& palette, UserInterface& ui, std::string_view utf8)
{
    const ReadPhrase phrase = readPhrase(utf8);
    (void)palette.pressCodes(phrase.codes);
    if (!phrase.unknown.empty()) {
        ui.ask({.title = "Incolla",
                .text = "Questi segni non sono conosciuti e non sono stati inseriti:\n\n" +
                        listed(phrase.unknown),
                .icon = Icon::Exclamation});
    } else if (phrase.codes.empty()) {
        ui.ask(
            {.title = "Incolla", .text = "Non ci sono geroglifici da incollare.", .icon = Icon::Information});
    }
}

}  // namespace karvel
