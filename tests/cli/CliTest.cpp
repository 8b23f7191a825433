// The terminal program as a process of its own: streams, exit status, options. The rules are tested in the
// core.
#include <gtest/gtest.h>

#if !defined(_WIN32)

#include <fcntl.h>

#include "reading/Reader.hpp"
#include "support/Child.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

namespace fs = std::filesystem;
using testing::record;

using Arguments = std::vector<std::string>;

constexpr const char* kNothing = "Non esiste una corrispondenza per questo termine !\n";

struct Outcome {
    int status;
    std::string out, err;
};

class CliTest : public ::testing::Test {
  protected:
    CliTest()
    {
        environment["KARVEL_DRIVE_C"] = utf8Path(drive.directory());
        drive.write(kDictionaryPath, first + second + third);
    }

    [[nodiscard]] Outcome run(const Arguments& given, const fs::path& out = {}) const
    {
        const fs::path directory = drive.directory().parent_path();
        const fs::path outFile = out.empty() ? directory / "out" : out;
        const int status = testing::inChild([&] {
            for (const auto& [name, value] : environment) {
                ::setenv(name.c_str(), value.c_str(), 1);
            }
            redirect(outFile, STDOUT_FILENO);
            redirect(directory / "err", STDERR_FILENO);
            std::vector<char*> arguments = {const_cast<char*>(KARVEL_CLI)};
            for (const std::string& argument : given) {
                arguments.push_back(const_cast<char*>(argument.c_str()));
            }
            arguments.push_back(nullptr);
            ::execv(KARVEL_CLI, arguments.data());
            ::_exit(127);
        });
        const auto text = [&](const fs::path& path) { return drive.files().readAll(utf8Path(path)); };
        return {status, out.empty() ? text(outFile) : "", text(directory / "err")};
    }

    void expect(const Arguments& given, int status, const std::string& out, const std::string& err) const
    {
        const Outcome outcome = run(given);
        const std::string name = ::testing::PrintToString(given);
        EXPECT_EQ(outcome.status, status) << name;
        EXPECT_EQ(outcome.out, out) << name;
        EXPECT_EQ(outcome.err, err) << name;
    }

    static void redirect(const fs::path& path, int descriptor)
    {
        ::dup2(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666), descriptor);
    }

    testing::TemporaryDrive drive;
    std::map<std::string, std::string> environment;
    const std::string first = record("d51f21b47", "bello, perché\r\nno", "nfr", "*occhio.gif");
    const std::string second = record("d51", "cuore", "nfr");
    const std::string third = record("a01d51", "uomo", "", "nota");
    // One match is one line, whatever is stored.
    const std::string firstLine = "d51f21b47\tbello, perché no\tnfr\t*occhio.gif\n";
    const std::string secondLine = "d51\tcuore\tnfr\t\n";
    const std::string thirdLine = "a01d51\tuomo\t\tnota\n";
};

TEST_F(CliTest, AnswersOnTheRightStreamWithTheRightStatus)
{
    expect({"cerca", "d51"}, 0, firstLine + secondLine + thirdLine, "");
    expect({"cerca", "--modo", "esatto", "d51"}, 0, secondLine, "");
    expect({"cerca", "d51", "--modo=inizia"}, 0, firstLine + secondLine, "");
    expect({"cerca", "--modo", "finisce", "--", "d51"}, 0, secondLine + thirdLine, "");
    expect({"cerca", "--modo", "mancante", "d51p47b47"}, 0, firstLine, "");
    expect({"cerca", "--gardiner", "F35-I9-D21"}, 0, firstLine, "");
    expect({"cerca", "c03"}, 1, "", kNothing);
    expect({"cerca", "--modo", "dividi", "d51a01d51c03"}, 0, secondLine + thirdLine, "Resta: c03\n");
    expect({"cerca", "--modo", "dividi", "c03"}, 1, "", "Resta: c03\n");
    expect({"blocchi", "--gardiner", "F35-I9-D21"}, 0, "F35-I9:D21\n", "");
    expect({"blocchi", "N35:(X1*d51) ?"}, 0, "N35:X1*F35-?\n", "");  // already in blocks
    expect({"blocchi", "--cartiglio", "g34o31h11p47"}, 0, "<-N5-Y5:N35-?->\n", "");
    expect({"italiano", "cuore"}, 0, secondLine, "");
    expect({"italiano", "--contiene", "UO"}, 0, secondLine + thirdLine, "");
    expect({"italiano", "cuo"}, 1, "", kNothing);
    expect({"nome", "Ra"}, 0, "b47 p19\n", "");
    expect({"nome", "1234"}, 1, "", "Nessuna lettera di questo nome ha un segno.\n");
    expect({"aggiungi", "d51", "mente"}, 1, "", "Questa parola esiste già !\n");
    expect({"aggiungi", "", "casa"}, 1, "", "NON HAI SCRITTO NULLA !\n");
    expect({"aggiungi", "--gardiner", "A1-B2", "il dì", "", "*foto"}, 0, "", "");
    expect({"italiano", "il dì"}, 0, "a01b04\til dì\t\t*foto\n", "");
    const Outcome full = run({"cerca", "d51"}, "/dev/full");
    EXPECT_EQ(full.status, 2);
    EXPECT_NE(full.err, "");
}

TEST_F(CliTest, ReadsAPassageALine)
{
    drive.write(kModelPath, "karvel-lettura 2\nparole 0\ngrafie 0\ncoppie 0\nterne 0\nmodifiche 0\n");
    expect({"leggi", "--gardiner", "F35-A1-F35"}, 0, secondLine + thirdLine, "");
    drive.write("C:\\brani.txt",
                "\xEF\xBB\xBF"
                "F35 zz a01d51\r\n \r\nqq\n\U00013124\n");
    // Block n answers line n, also where nothing is known.
    expect(
        {"leggi", "--file", "C:\\brani.txt"}, 1, secondLine + thirdLine + "\n\n" + secondLine,
        "riga 1, carattere 5: segno sconosciuto: \"zz\"\nriga 3, carattere 1: segno sconosciuto: \"qq\"\n");
}

TEST_F(CliTest, TakesTheDictionaryFromAnyPath)
{
    drive.write("C:\\programmi\\Karvel\\altro.txt", third);
    expect({"cerca", "--dizionario", "c:\\PROGRAMMI\\karvel\\Altro.TXT", "a01"}, 0, thirdLine, "");
    expect({"cerca", "--dizionario=" + utf8Path(drive.host("C:\\programmi\\Karvel\\altro.txt")), "a01"}, 0,
           thirdLine, "");
}

TEST_F(CliTest, ReportsAFaultyDictionaryAfterTheMatchesBeforeTheFault)
{
    const std::string end = "Ci sono caratteri in meno o in più nel file !\n";
    drive.write(kDictionaryPath, second + "\"d51\"\r\n\"tagliata\"\r\n");
    expect({"cerca", "d51"}, 2, secondLine,
           "C'e' un errore nel file dizio.txt ERR>62\nInput oltre la fine del file\n" + end);
    expect({"verifica"}, 2, "1 voci\n",
           "C:\\programmi\\Karvel\\dizio.txt: riga 5: voce incompleta: il file finisce prima del quarto "
           "campo\n");
    drive.files().remove(kDictionaryPath);
    const std::string missing = "C'e' un errore nel file dizio.txt ERR>53\nFile non trovato\n" + end;
    for (const Arguments& command : {Arguments{"cerca", "d51"},
                                     {"cerca", "--modo", "dividi", "a01"},
                                     {"italiano", "casa"},
                                     {"aggiungi", "a01", "casa"}}) {
        expect(command, 2, "", missing);
    }
}

TEST_F(CliTest, RefusesWrongUseInItalian)
{
    const struct {
        Arguments given;
        std::string complaint;
    } cases[] = {
        {{}, "karvel-cli: manca il comando"},
        {{"traduci"}, "karvel-cli: comando sconosciuto: traduci"},
        {{"trova", "--italiano", "--segni", "x"}, "karvel-cli trova: si può indicare un solo tipo di testo"},
        {{"cerca"}, "karvel-cli cerca: mancano degli argomenti"},
        {{"cerca", "d51", "a01"}, "karvel-cli cerca: argomento di troppo: a01"},
        {{"cerca", "--modo", "uguale", "d51"}, "karvel-cli cerca: modo sconosciuto: uguale"},
        {{"cerca", "d51", "--modo"}, "karvel-cli cerca: manca il valore di --modo"},
        {{"cerca", "--tutto", "d51"}, "karvel-cli cerca: opzione sconosciuta: --tutto"},
        {{"blocchi", "F35:"}, "karvel-cli blocchi: manca un segno"},
        {{"disegna", "a01"}, "karvel-cli disegna: mancano degli argomenti"},
        {{"disegna", "--altezza", "0", "a01", "x.svg"}, "karvel-cli disegna: l'altezza è un numero da 1 a "},
        {{"aggiungi", "a54", "casa"}, "karvel-cli aggiungi: non è una sequenza di codici di segni: a54"},
        {{"cerca", "--gardiner", "F35-Z999"}, "karvel-cli cerca: numero di Gardiner sconosciuto: \"Z999\""},
    };
    for (const auto& [given, complaint] : cases) {
        const Outcome outcome = run(given);
        EXPECT_EQ(outcome.status, 2) << complaint;
        EXPECT_EQ(outcome.out, "") << complaint;
        EXPECT_TRUE(outcome.err.starts_with(complaint)) << outcome.err;
        EXPECT_NE(outcome.err.find("\nUso: karvel-cli "), std::string::npos) << complaint;
    }
}

TEST_F(CliTest, InstallsTheTree)
{
    environment["KARVEL_DATA"] = KARVEL_SOURCE_DIR "/data/tree";
    const fs::path root = drive.directory().parent_path() / hostPath("l'altrove  è \"qui\" 埃及");
    const fs::path installed = root / "programmi" / "Karvel";
    const Outcome outcome = run({"installa", "--radice", utf8Path(root)});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(outcome.out.ends_with(" file installati in " + utf8Path(installed) + "\n")) << outcome.out;
    environment["KARVEL_DRIVE_C"] = utf8Path(root);
    const Outcome checked = run({"verifica"});
    EXPECT_EQ(checked.status, 0) << checked.err;
    EXPECT_GT(std::stoi(checked.out), 10000);
    expect({"installa"}, 0, "0 file installati in " + utf8Path(installed) + "\n", "");
    environment["KARVEL_DATA"] = utf8Path(root);  // no tree to install from
    EXPECT_EQ(run({"installa"}).status, 2);
    EXPECT_NE(run({"--help"}).out.find("installa [--radice DIR]"), std::string::npos);
}

}  // namespace
}  // namespace karvel

#endif
