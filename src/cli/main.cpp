#include <algorithm>
#include <cstdio>
#include <exception>

#include "Version.hpp"
#include "app/EditionOffer.hpp"
#include "cli/Command.hpp"
#include "cli/Output.hpp"
#include "files/Leftovers.hpp"

#if defined(_WIN32)
#include "base/WindowsHeader.hpp"
// After the system's header, which it needs:
#include <shellapi.h>

#include <filesystem>

#include "files/Drives.hpp"
#endif

namespace {

using namespace karvel::cli;

void printHelp(Output& output)
{
    output.line("Karvel - Dizionario geroglifico-italiano");
    output.line("");
    output.line("Uso: karvel-cli COMANDO [ARGOMENTI]");
    output.line("");
    for (const Command& command : commands()) {
        output.line("  " + std::string(command.name) + " " + std::string(command.usage));
        output.line("      " + std::string(command.help));
    }
    output.line("");
    output.line("  --help     mostra questo testo");
    output.line("  --version  mostra la versione");
    output.line("");
    output.line("Stato d'uscita: 0 trovato o fatto, 1 niente trovato o rifiutato, 2 errore.");
}

Exit run(const Arguments& arguments)
{
    if (arguments.empty()) {
        throw UsageError("manca il comando");
    }
    Output output;
    if (arguments[0] == "--help" || arguments[0] == "-h") {
        printHelp(output);
        return Exit::Done;
    }
    if (arguments[0] == "--version") {
        output.line(std::string("karvel-cli ") + karvel::kVersion);
        return Exit::Done;
    }
    for (const Command& command : commands()) {
        if (command.name != arguments[0]) {
            continue;
        }
        const Arguments rest(arguments.begin() + 1, arguments.end());
        if (std::ranges::find(rest, "--help") != rest.end()) {
            output.line("Uso: karvel-cli " + std::string(command.name) + " " + std::string(command.usage));
            output.line(std::string(command.help));
            return Exit::Done;
        }
        const karvel::FileSystem files(karvel::Drives::ofUser());
        karvel::removeLeftovers(files);
        karvel::provideDictionary(files);
        try {
            return command.run(rest);
        } catch (const UsageError& error) {
            complain("karvel-cli " + std::string(command.name) + ": " + error.message());
            complain("Uso: karvel-cli " + std::string(command.name) + " " + std::string(command.usage));
            return Exit::Error;
        }
    }
    throw UsageError("comando sconosciuto: " + arguments[0]);
}

Arguments argumentsOf(int argc, char** argv)
{
#if defined(_WIN32)
    (void)argc;
    (void)argv;
    Arguments arguments;
    int count = 0;
    wchar_t** const wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) {
        arguments.push_back(karvel::utf8Path(std::filesystem::path(wide[i])));
    }
    ::LocalFree(wide);
    ::SetConsoleOutputCP(CP_UTF8);
    return arguments;
#else
    return {argv + 1, argv + argc};
#endif
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        const Exit outcome = run(argumentsOf(argc, argv));
        if (std::ferror(stdout) == 0) {
            return static_cast<int>(outcome);
        }
        complain("karvel-cli: i risultati non si sono potuti scrivere tutti.");
    } catch (const UsageError& error) {
        complain("karvel-cli: " + error.message());
        complain("Uso: karvel-cli COMANDO [ARGOMENTI]; karvel-cli --help elenca i comandi.");
    } catch (const std::exception& error) {
        complain(std::string("karvel-cli: ") + error.what());
    }
    return static_cast<int>(Exit::Error);
}
