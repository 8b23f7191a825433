#include "cli/Command.hpp"

#include <algorithm>
#include <array>
#include <cstdio>

#include "base/SignCode.hpp"
#include "text/PhraseText.hpp"

namespace karvel::cli {

std::span<const Command> commands()
{
    static constexpr std::array kCommands = {
        Command{"cerca", "[--modo MODO] [--dizionario FILE] [--gardiner] CODICI",
                "cerca una frase; MODO: esatto, simile, inizia, finisce, mancante, dividi", search},
        Command{"italiano", "[--contiene] [--dizionario FILE] PAROLA",
                "cerca i segni di una parola italiana: traduzione uguale, o che la contiene", searchItalian},
        Command{"trova", "[--italiano|--traslitterazione|--segni] [--grafie] [--dizionario FILE] TESTO",
                "cerca un testo, una parola per riga, le migliori prima; --grafie: tutte le grafie",
                findWords},
        Command{"leggi", "[--gardiner] CODICI | [--gardiner] --file FILE",
                "legge un brano parola per parola; FILE: un brano per riga", readPassage},
        Command{"nome", "NOME", "trascrive un nome in codici di segni", transcribeName},
        Command{"aggiungi", "[--gardiner] CODICI TRADUZIONE [TRASLITTERAZIONE [NOTA]]",
                "aggiunge una voce in fondo al dizionario", addEntry},
        Command{"aggiorna", "[--prova]",
                "porta il dizionario alla nuova edizione e conserva le voci dell'utente; --prova non scrive",
                updateEdition},
        Command{"verifica", "[FILE]", "conta le voci di un dizionario e indica la prima dubbia", verifyFile},
        Command{"blocchi", "[--cartiglio] [--gardiner] CODICI",
                "mostra come i segni si dispongono in blocchi, in Manuel de Codage", printBlocks},
        Command{"disegna",
                "[--cartiglio] [--da-destra] [--in-colonna] [--altezza N] [--gardiner] CODICI FILE.svg",
                "disegna una frase in blocchi alti N pixel (64)", drawPhrase},
        Command{"installa", "[--radice DIR]", "mette al loro posto i dati che mancano", install},
    };
    return kCommands;
}

std::string takeOption(Arguments& arguments, std::string_view name)
{
    for (auto at = arguments.begin(); at != arguments.end() && *at != "--"; ++at) {
        if (at->starts_with(name) && at->size() > name.size() && (*at)[name.size()] == '=') {
            std::string value = at->substr(name.size() + 1);
            arguments.erase(at);
            return value;
        }
        if (*at == name) {
            if (at + 1 == arguments.end()) {
                throw UsageError("manca il valore di " + std::string(name));
            }
            std::string value = *(at + 1);
            arguments.erase(at, at + 2);
            return value;
        }
    }
    return {};
}

bool takeSwitch(Arguments& arguments, std::string_view name)
{
    const auto end = std::ranges::find(arguments, "--");
    const auto found = std::find(arguments.begin(), end, name);
    if (found == end) {
        return false;
    }
    arguments.erase(found);
    return true;
}

void expectWords(Arguments& arguments, std::size_t least, std::size_t most)
{
    const auto end = std::ranges::find(arguments, "--");
    const auto option = std::find_if(arguments.begin(), end, [](const std::string& word) {
        return word.starts_with("-") && word.size() > 1;
    });
    if (option != end) {
        throw UsageError("opzione sconosciuta: " + *option);
    }
    if (end != arguments.end()) {
        arguments.erase(end);
    }
    if (arguments.size() < least) {
        throw UsageError("mancano degli argomenti");
    }
    if (arguments.size() > most) {
        throw UsageError("argomento di troppo: " + arguments[most]);
    }
}

std::string codesFrom(const std::string& given, bool gardiner)
{
    if (!gardiner) {
        if (!isSignSequence(given)) {
            throw UsageError("non è una sequenza di codici di segni: " + given);
        }
        return given;
    }
    std::string unknown;
    const auto codes = codesOfGardiner(given, unknown);
    if (!codes) {
        throw UsageError("numero di Gardiner sconosciuto: \"" + unknown + "\"");
    }
    return *codes;
}

void complain(std::string_view message)
{
    std::fprintf(stderr, "%.*s\n", static_cast<int>(message.size()), message.data());
}

}  // namespace karvel::cli
