#include "words/DictionaryInsertion.hpp"

#include <chrono>
#include <initializer_list>
#include <thread>
#include <utility>

#include "base/SignCode.hpp"
#include "dictionary/RecordReader.hpp"
#include "dictionary/TranslationLookup.hpp"
#include "text/CodePage.hpp"
#include "text/Compose.hpp"
#include "text/FieldWriter.hpp"

namespace karvel {

namespace {

MessageBox nothingComposedBox()
{
    return {.title = "ERRORE", .text = "NON HAI SCRITTO NULLA !", .icon = Icon::Question};
}

MessageBox missingSignBox()
{
    return {.title = "ATTENZIONE",
            .text =
                "La frase contiene il segno mancante: sostituirlo con un segno prima di inserirla nel "
                "dizionario.",
            .icon = Icon::Critical};
}

bool holdsMissingSign(std::string_view codes)
{
    for (const std::string_view code : splitCodes(codes)) {
        if (code == kMissingSign) {
            return true;
        }
    }
    return false;
}

MessageBox quotesBox()
{
    return {.title = "ATTENZIONE",
            .text = "Non è possibile utilizzare le virgolette nella frase.\n\nSostituirle con parentesi.",
            .icon = Icon::Exclamation};
}

bool isLineEnd(char32_t character)
{
    return character == U'\n' || character == U'\r' || character == U'\u2028' || character == U'\u2029';
}

/// A pasted line end becomes a blank: a field is one line.
std::string onOneLine(std::string_view text)
{
    std::string line;
    bool afterCr = false;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        const char32_t character = nextCharacter(text, at);
        if (!isLineEnd(character)) {
            line += text.substr(begin, at - begin);
        } else if (character != U'\n' || !afterCr) {
            line += ' ';
        }
        afterCr = character == U'\r';
    }
    return line;
}

}  // namespace

bool DictionaryInsertion::mayOpen(std::string_view codes)
{
    if (codes.empty()) {
        ui_.ask(nothingComposedBox());
        return false;
    }
    return true;
}

bool DictionaryInsertion::refuses(std::string_view codes, const Texts& texts)
{
    if (texts.translation.empty()) {
        ui_.ask({.title = "ERRORE",
                 .text = "NON HAI INSERITO NULLA !\n\nRIDIGITA IL TESTO",
                 .icon = Icon::Critical});
        return true;
    }
    // The signs come last: they hold a quote only when a damaged page of favourites brought one in.
    for (const std::string_view field : std::initializer_list<std::string_view>{
             texts.translation, texts.transliteration, texts.note, codes}) {
        if (field.find('"') != std::string_view::npos) {
            ui_.ask(quotesBox());
            return true;
        }
    }
    std::string all(codes);
    all += texts.translation + texts.transliteration + texts.note;
    if (const std::string lacking = unencodable(all); !lacking.empty()) {
        ui_.ask({.title = "ATTENZIONE",
                 .text = "Questi caratteri non possono essere scritti nel dizionario: " + lacking,
                 .icon = Icon::Critical});
        return true;
    }
    // The display may have been emptied since the dialog was opened; an entry without signs could never be
    // found.
    if (!mayOpen(codes)) {
        return true;
    }
    if (holdsMissingSign(codes)) {
        ui_.ask(missingSignBox());
        return true;
    }
    return false;
}

/// The offset at which the last record ends; nothing when some record has exactly these signs. Another
/// program may be adding an entry of which only the first bytes are in the file: a file that ends inside a
/// record and grows is read again.
std::optional<std::uint64_t> DictionaryInsertion::endUnlessKnown(std::string_view codes)
{
    constexpr int kAttempts = 4;
    for (int attempt = 1;; ++attempt) {
        const std::uint64_t size = files_.open(kDictionaryPath)->size();
        try {
            return lookThrough(codes);
        } catch (const RuntimeError& error) {
            if (error.number() != ErrorNumber::InputPastEnd || attempt == kAttempts || !growsFrom(size)) {
                throw;
            }
        }
    }
}

/// Whether another program is writing to the dictionary now.
bool DictionaryInsertion::growsFrom(std::uint64_t size) const
{
    constexpr std::chrono::milliseconds kPause(10);
    for (int pause = 0; pause < 3; ++pause) {
        std::this_thread::sleep_for(kPause);
        if (files_.open(kDictionaryPath)->size() != size) {
            return true;
        }
    }
    return false;
}

std::optional<std::uint64_t> DictionaryInsertion::lookThrough(std::string_view codes)
{
    const BusyPointer hourglass(ui_);
    RecordReader reader(openDictionary(files_, ui_));
    const auto rememberNote = [&] {
        if (auto last = reader.last()) {
            last_.note = std::move(last->note);
            last_.phrase.clear();  // the translation is of another record
        }
    };
    bool found = false;
    try {
        while (!found && reader.next()) {
            found = reader.record().signs == codes;
        }
    } catch (const RuntimeError&) {
        rememberNote();
        throw;
    }
    rememberNote();
    return found ? std::nullopt : std::optional(reader.end());
}

DictionaryInsertion::End DictionaryInsertion::confirm(std::string_view codes, Texts texts)
{
    for (std::string* const text : {&texts.translation, &texts.transliteration, &texts.note}) {
        *text = onOneLine(composed(*text));
    }
    if (refuses(codes, texts)) {
        return End::Refused;
    }
    try {
        const std::optional<std::uint64_t> end = endUnlessKnown(encode(codes));
        if (!end) {
            ui_.ask({.title = "ERRORE", .text = "Questa parola esiste già !"});
            return End::Duplicate;
        }
        files_.append(kDictionaryPath,
                      quotedLine(codes) + quotedLine(texts.translation) + quotedLine(texts.transliteration) +
                          quotedLine(texts.note),
                      end);
    } catch (const RuntimeError& error) {
        ui_.ask(dictionaryErrorBox(error));
        return End::Failed;
    }
    return End::Written;
}

}  // namespace karvel
