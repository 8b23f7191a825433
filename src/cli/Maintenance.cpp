#include <cstdio>
#include <filesystem>

#include "app/Installer.hpp"
#include "cli/Command.hpp"
#include "cli/Output.hpp"
#include "dictionary/DictionaryEntry.hpp"
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
