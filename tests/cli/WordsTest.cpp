#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>

#include "dictionary/DictionaryEntry.hpp"
#include "support/TemporaryDrive.hpp"

#if !defined(_WIN32)

namespace karvel {
namespace {

using testing::record;

struct Result {
    int status = -1;
    std::string output;
    std::string errors;
};

class Words : public ::testing::Test {
  protected:
    Words()
    {
        drive_.writeSettings();
        drive_.write(kDictionaryPath, record("a01", "uno", "w", "numero") + record("a01b02", "casa", "pr") +
                                          record("c03", "Casa bella") + record("c03", "città"));
    }

    /// Runs the terminal program with `arguments`, quoted as the shell wants them.
    [[nodiscard]] Result run(const std::string& arguments)
    {
        const std::string errors = (drive_.directory().parent_path() / "errors").string();
        const std::string command = "KARVEL_DRIVE_C='" + drive_.directory().string() + "' '" KARVEL_CLI "' " +
                                    arguments + " 2>'" + errors + "'";
        Result result;
        std::FILE* const pipe = ::popen(command.c_str(), "r");
        std::array<char, 4096> chunk{};
        while (const std::size_t count = std::fread(chunk.data(), 1, chunk.size(), pipe)) {
            result.output.append(chunk.data(), count);
        }
        const int status = ::pclose(pipe);
        result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        result.errors = drive_.read(errors);
        return result;
    }

    testing::TemporaryDrive drive_;
};

TEST_F(Words, AnswersOnTheRightStreamWithTheRightStatus)
{
    const struct {
        const char* arguments;
        int status;
        const char* output;
        const char* errors;
    } cases[] = {
        {"cerca --modo dividi a01b02a01c03", 0,
         "a01b02\tcasa\tpr\t\na01\tuno\tw\tnumero\nc03\tCasa bella\t\t\n", ""},
        {"cerca --modo dividi a01d04c03", 0, "a01\tuno\tw\tnumero\n", "Resta: d04c03\n"},
        {"cerca --modo dividi d04", 1, "", "Resta: d04\n"},
        {"blocchi --gardiner F35-I9-D21", 0, "F35-I9:D21\n", ""},
        {"blocchi --cartiglio g34o31h11p47", 0, "<-N5-Y5:N35-?->\n", ""},
        {"italiano casa", 0, "a01b02\tcasa\tpr\t\n", ""},
        {"italiano --contiene CAS", 0, "a01b02\tcasa\tpr\t\nc03\tCasa bella\t\t\n", ""},
        {"italiano città", 0, "c03\tcittà\t\t\n", ""},
        {"italiano cas", 1, "", "Non esiste una corrispondenza per questo termine !\n"},
        {"nome Cleopatra", 0, "n38 d06 g03 n13 i27 p19 o19 b47 p19\n", ""},
        {"nome 1234", 1, "", "Nessuna lettera di questo nome ha un segno.\n"},
        {"aggiungi a01b02 dimora", 1, "", "Questa parola esiste già !\n"},
        {"aggiungi d04 ''", 1, "", "NON HAI INSERITO NULLA !\n\nRIDIGITA IL TESTO\n"},
        {"aggiungi '' casa", 1, "", "NON HAI SCRITTO NULLA !\n"},
        {"aggiungi --gardiner A1-B2 'il dì' '' '*foto'", 0, "", ""},
        {"italiano 'il dì'", 0, "a01b04\til dì\t\t*foto\n", ""},
    };
    for (const auto& each : cases) {
        const Result result = run(each.arguments);
        EXPECT_EQ(each.status, result.status) << each.arguments;
        EXPECT_EQ(each.output, result.output) << each.arguments;
        EXPECT_EQ(each.errors, result.errors) << each.arguments;
    }
}

TEST_F(Words, ReportsWrongUseAndAMissingDictionary)
{
    for (const char* const wrong :
         {"nome", "italiano", "aggiungi a01", "aggiungi xyz casa", "nome a b", "blocchi", "blocchi F35",
          "disegna a01", "disegna --altezza 0 a01 x.svg", "disegna a01 /nessuna/x.svg"}) {
        EXPECT_EQ(2, run(wrong).status) << wrong;
    }
    std::filesystem::remove(drive_.host(kDictionaryPath));
    for (const char* const command : {"cerca --modo dividi a01", "italiano casa", "aggiungi a01 casa"}) {
        const Result result = run(command);
        EXPECT_EQ(2, result.status) << command;
        EXPECT_NE(std::string::npos, result.errors.find("ERR>53")) << command;
    }
}

}  // namespace
}  // namespace karvel

#endif
