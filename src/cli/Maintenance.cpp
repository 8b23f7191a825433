#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <span>

#include "app/Installer.hpp"
#include "cli/Command.hpp"
#include "cli/Output.hpp"
#include "dictionary/DictionaryEntry.hpp"
#include "dictionary/EditionUpdate.hpp"
#include "dictionary/Verification.hpp"
#include "files/FileSystem.hpp"

namespace karvel::cli {

Exit verifyFile(const Arguments& given)
{
    Arguments arguments = given;
    expectWords(arguments, 0, 1);
    const std::string path = arguments.empty() ? std::string(kDictionaryPath) : arguments[0];
    const FileSystem files(Drives::ofUser());
    Output output;
    try {
        const auto source = files.open(path);
        const Verification result = verify(*source);
        output.line(std::to_string(result.records) + " voci");
        constexpr std::size_t kTold = 20;
        for (const Double& each : std::span(result.doubles).first(std::min(result.doubles.size(), kTold))) {
            output.line("osservazione: la voce alla riga " + std::to_string(each.line) +
                        " ha i segni e la traduzione di quella alla riga " + std::to_string(each.first));
        }
        if (result.doubles.size() > kTold) {
            output.line("osservazione: altre voci doppie: " + std::to_string(result.doubles.size() - kTold));
        }
        if (!result.fault) {
            return Exit::Done;
        }
        output.flush();
        complain(path + ": riga " + std::to_string(result.fault->line) + ": " + result.fault->reason);
        return Exit::Error;
    } catch (const RuntimeError& error) {
        complain(path + ": " + std::string(error.text()));
        return Exit::Error;
    }
}

Exit updateEdition(const Arguments& given)
{
    Arguments arguments = given;
    const bool onlyTell = takeSwitch(arguments, "--prova");
    expectWords(arguments, 0, 0);
    const FileSystem files(Drives::ofUser());
    Output output;
    const auto tell = [&output](const char* what, std::uint64_t records) {
        output.line(std::string(what) + ": " + std::to_string(records));
    };
    try {
        EditionUpdate update = planUpdate(files);
        if (update.fault) {
            complain(std::string(kDictionaryPath) + ": riga " + std::to_string(update.fault->line) + ": " +
                     update.fault->reason);
            complain("Il dizionario non viene aggiornato.");
            return Exit::Error;
        }
        tell("voci della nuova edizione", update.editionRecords);
        tell("voci del dizionario in uso", update.records);
        tell("aggiunte o modificate dall'utente, che restano", update.ownRecords);
        tell("voci dopo l'aggiornamento", update.editionRecords + update.ownRecords);
        output.flush();
        if (update.changesNothing()) {
            output.line("il dizionario è già aggiornato");
        } else if (!onlyTell) {
            const std::string kept = carryOut(update, files);
            output.line(kept.empty() ? "il dizionario è già aggiornato" : "il file di prima è " + kept);
        }
        return Exit::Done;
    } catch (const RuntimeError& error) {
        complain("Aggiornamento non riuscito: " + std::string(error.text()) +
                 (error.furtherLine().empty() ? "" : ": " + error.furtherLine()));
        return Exit::Error;
    }
}

Exit install(const Arguments& given)
{
    Arguments arguments = given;
    const std::string root = takeOption(arguments, "--radice");
    expectWords(arguments, 0, 0);
    const auto tree = findDataTree(ownProgram());
    if (!tree) {
        complain("Non trovo i dati da installare; la variabile KARVEL_DATA può indicarne la directory.");
        return Exit::Error;
    }
    try {
        const Drives drives =
            root.empty() ? Drives::ofUser() : Drives(std::filesystem::absolute(hostPath(root)));
        const std::size_t copied = installTree(*tree, drives);
        Output().line(std::to_string(copied) + " file installati in " +
                      utf8Path(drives.toHost("C:\\programmi\\Karvel")));
        return Exit::Done;
    } catch (const RuntimeError& error) {
        complain("Installazione non riuscita: " + std::string(error.text()));
        return Exit::Error;
    }
}

}  // namespace karvel::cli
