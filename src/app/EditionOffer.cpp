#include "app/EditionOffer.hpp"

#include <cstdint>
#include <cstdio>

#include "dictionary/DictionaryEntry.hpp"
#include "dictionary/EditionUpdate.hpp"
#include "text/Checksum.hpp"

namespace karvel {

namespace {

constexpr const char* kTitle = "Aggiornamento del dizionario";

std::string answerFor(std::string_view edition)
{
    char line[32];
    std::snprintf(line, sizeof line, "%016llx\r\n", static_cast<unsigned long long>(checksum(edition)));
    return line;
}

/// A number in the Italian form: 22.625.
std::string grouped(std::uint64_t number)
{
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size(); at > 3;) {
        digits.insert(at -= 3, ".");
    }
    return digits;
}

std::string present(const EditionUpdate& update)
{
    std::string text = "Il dizionario in uso ha " + grouped(update.records) + " voci";
    if (update.ownRecords == 0) {
        return text + ", nessuna delle quali aggiunta o modificata dall'utente.";
    }
    return text + "; quelle aggiunte o modificate dall'utente sono " + grouped(update.ownRecords) +
           " e restano, in fondo alla nuova edizione.";
}

MessageBox question(const EditionUpdate& update)
{
    return {.title = kTitle,
            .text = "La nuova edizione del dizionario ha " + grouped(update.editionRecords) + " voci.\n" +
                    present(update) +
                    "\n\nIl file di prima viene conservato accanto al nuovo.\n\nAggiornare il dizionario?",
            .icon = Icon::Question,
            .buttons = Buttons::YesNo,
            .defaultButton = Button::No};
}

MessageBox faultBox(const Fault& fault)
{
    return {.title = kTitle,
            .text = "Il dizionario non viene aggiornato: il file dizio.txt ha un errore.\n\nRiga " +
                    std::to_string(fault.line) + ": " + fault.reason +
                    "\n\nCorreggere il file, poi scegliere Info, Aggiorna dizionario.",
            .icon = Icon::Critical};
}

MessageBox upToDateBox(const EditionUpdate& update)
{
    return {.title = kTitle,
            .text = "Il dizionario è già aggiornato: " + grouped(update.records) + " voci.",
            .icon = Icon::Information};
}

MessageBox doneBox(const EditionUpdate& update, std::string_view kept)
{
    return {.title = kTitle,
            .text = "Il dizionario è aggiornato: " + grouped(update.editionRecords + update.ownRecords) +
                    " voci.\n\nIl file di prima è " + std::string(kept),
            .icon = Icon::Information};
}

/// Asks about a plan that changes something, and carries it out after a Yes.
void askAndUpdate(EditionUpdate& update, const FileSystem& files, UserInterface& ui)
{
    if (update.fault) {
        ui.ask(faultBox(*update.fault));
    } else if (ui.ask(question(update)) == Button::Yes) {
        const std::string kept = carryOut(update, files);
        ui.ask(kept.empty() ? upToDateBox(update) : doneBox(update, kept));
    }
}

/// Whether the file can be written. Checked before the question, so that a Yes can be carried out.
bool canKeepAnswer(const FileSystem& files)
{
    try {
        const bool known = files.exists(kEditionAnswerPath);
        files.replace(kEditionAnswerPath, known ? files.readAll(kEditionAnswerPath) : "");
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace

void provideDictionary(const FileSystem& files)
{
    if (files.exists(kDictionaryPath) || files.exists(kEditionAnswerPath) || !files.exists(kEditionPath)) {
        return;
    }
    try {
        files.replace(kDictionaryPath, files.readAll(kEditionPath));
        keepEditionAnswer(files);
    } catch (const RuntimeError&) {
        // Either file is whole or not there.
    }
}

void keepEditionAnswer(const FileSystem& files)
{
    try {
        files.replace(kEditionAnswerPath, answerFor(files.readAll(kEditionPath)));
    } catch (const RuntimeError&) {
        // See the header.
    }
}

void offerEdition(const FileSystem& files, UserInterface& ui)
{
    try {
        if (!files.exists(kEditionPath) || !files.exists(kDictionaryPath)) {
            return;
        }
        const std::string answer = answerFor(files.readAll(kEditionPath));
        if (files.exists(kEditionAnswerPath) && files.readAll(kEditionAnswerPath) == answer) {
            return;
        }
        EditionUpdate update = planUpdate(files);
        if (update.changesNothing()) {
            files.replace(kEditionAnswerPath, answer);
            return;
        }
        if (!canKeepAnswer(files)) {
            return;
        }
        try {
            askAndUpdate(update, files, ui);
        } catch (const RuntimeError& error) {
            ui.ask(defaultErrorReport(error));
            return;
        }
        files.replace(kEditionAnswerPath, answer);
    } catch (const RuntimeError&) {
        // A file that cannot be read is reported by the part that needs it. An answer that was not saved is
        // asked again.
    }
}

void updateDictionary(const FileSystem& files, UserInterface& ui)
{
    EditionUpdate update = [&] {
        const BusyPointer hourglass(ui);
        return planUpdate(files);
    }();
    if (!update.fault && update.changesNothing()) {
        ui.ask(upToDateBox(update));
        return;
    }
    askAndUpdate(update, files, ui);
}

}  // namespace karvel
