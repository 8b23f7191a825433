#include "app/Views.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <limits>

#include "dictionary/EntryCount.hpp"

namespace karvel {

namespace {

/// A number in the Italian form, with a decimal comma.
std::string decimal(double number)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.15g", number);
    std::string written = text;
    std::ranges::replace(written, '.', ',');
    return written;
}

MessageBox exitQuestion(Icon icon)
{
    return {.title = "Uscita programma:",
            .text = "Sei sicuro ?",
            .icon = icon,
            .buttons = Buttons::YesNo,
            .defaultButton = Button::No};
}

/// What an error says about the file that was read.
std::string whatIsWrong(ErrorNumber error)
{
    switch (error) {
        case ErrorNumber::FileNotFound:
        case ErrorNumber::PathNotFound:
            return "manca";
        case ErrorNumber::PathFileAccess:
            return "è una directory";
        case ErrorNumber::Overflow:
        case ErrorNumber::TypeMismatch:
        case ErrorNumber::InputPastEnd:
            return "è danneggiato";
        default:
            return "non si può leggere";
    }
}

EntryCount count(Session& session)
{
    const BusyPointer hourglass(session.ui());
    try {
        const auto dictionary = openDictionary(session.files(), session.ui());
        return countEntries(*dictionary);
    } catch (const RuntimeError& failure) {
        return {.entries = 0, .failure = failure};
    }
}

}  // namespace

void showCode(Session& session)
{
    session.FavouritePage = 0;
    const EntryCount counted = count(session);
    session.FavouritePage = static_cast<std::int16_t>(
        std::min<std::int64_t>(counted.entries, std::numeric_limits<std::int16_t>::max()));
    if (counted.failure) {
        session.ui().ask(defaultErrorReport(*counted.failure));
        // A count that ends inside an entry is still worth showing; any other failure leaves no count.
        if (counted.failure->number() != ErrorNumber::InputPastEnd) {
            return;
        }
    }
    session.ui().ask({.title = "Visualizza",
                      .text = "Codice geroglifico: " + session.palette().CurrentSignCode() +
                              "\r\rNumero totale di voci immesse: " + std::to_string(counted.entries),
                      .icon = Icon::Information});
}

void showPhrase(Session& session)
{
    const std::string& codes = session.display().DisplayCodes();
    session.ui().ask({.title = "sistema",
                      .text = "Codice frase: " + codes + "\r\rNumero caratteri: " +
                              decimal(static_cast<double>(codes.size()) / static_cast<double>(kCodeLength)),
                      .icon = Icon::Information,
                      .systemModal = true});
}

void undo(Session& session)
{
    try {
        session.display().undo();
    } catch (const RuntimeError& error) {
        session.ui().ask({.title = "Messaggio di sistema",
                          .text = "Non è possibile tornare allo stato precedente: il file Undo.dat " +
                                  whatIsWrong(error.number()) + ".\n\nErrore " +
                                  std::to_string(error.value()) + ": " + std::string(error.text()),
                          .icon = Icon::Critical});
    }
}

bool confirmExit(UserInterface& ui)
{
    return ui.ask(exitQuestion(Icon::None)) == Button::Yes;
}

bool confirmClose(UserInterface& ui)
{
    return ui.ask(exitQuestion(Icon::Question)) == Button::Yes;
}

}  // namespace karvel
