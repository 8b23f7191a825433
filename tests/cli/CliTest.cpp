// The terminal program as a process, as a script sees it.
#include <gtest/gtest.h>

#if !defined(_WIN32)

#include <fcntl.h>

#include "app/Installer.hpp"
#include "dictionary/DictionaryEntry.hpp"
#include "support/Child.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

namespace fs = std::filesystem;
using testing::record;

using Words = std::vector<std::string>;

constexpr const char* kNothing = "Non esiste una corrispondenza per questo termine !\n";

class CliTest : public ::testing::Test {
  protected:
    struct Outcome {
        int status;
        std::string out, err;
    };

    CliTest()
    {
        environment["KARVEL_DRIVE_C"] = utf8Path(drive.directory());
        drive.write(kDictionaryPath, first + second + third);
    }

    [[nodiscard]] Outcome run(const Words& words, const fs::path& out = {}) const
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
            for (const std::string& word : words) {
                arguments.push_back(const_cast<char*>(word.c_str()));
            }
            arguments.push_back(nullptr);
            ::execv(KARVEL_CLI, arguments.data());
            ::_exit(127);
        });
        const auto text = [&](const fs::path& path) { return drive.files().readAll(utf8Path(path)); };
        return {status, out.empty() ? text(outFile) : "", text(directory / "err")};
    }

    void expect(const Words& words, int status, const std::string& out, const std::string& err) const
    {
        const Outcome outcome = run(words);
        const std::string name = ::testing::PrintToString(words);
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
    const std::string first = record("d51f21b47", "bello, perché no", "nfr", "*occhio.gif");
    const std::string second = record("d51", "cuore", "nfr");
    const std::string third = record("a01d51", "uomo", "", "nota");
    const std::string firstLine = "d51f21b47\tbello, perché no\tnfr\t*occhio.gif\n";
    const std::string secondLine = "d51\tcuore\tnfr\t\n";
    const std::string thirdLine = "a01d51\tuomo\t\tnota\n";
};

TEST_F(CliTest, SearchesInEveryMode)
{
    expect({"cerca", "d51"}, 0, firstLine + secondLine + thirdLine, "");
    expect({"cerca", "--modo", "simile", "d51f21"}, 0, firstLine, "");
    expect({"cerca", "--modo", "esatto", "d51"}, 0, secondLine, "");
    expect({"cerca", "d51", "--modo=inizia"}, 0, firstLine + secondLine, "");
    expect({"cerca", "--modo", "finisce", "--", "d51"}, 0, secondLine + thirdLine, "");
    expect({"cerca", "--modo", "mancante", "d51p47b47"}, 0, firstLine, "");
    expect({"cerca", "--modo", "mancante", "d51"}, 1, "", kNothing);
    expect({"cerca", "--gardiner", "F35-I9-D21"}, 0, firstLine, "");
    expect({"cerca", "c03"}, 1, "", kNothing);
}

TEST_F(CliTest, TakesTheDictionaryFromAnyPath)
{
    drive.write("C:\\programmi\\Karvel\\altro.txt", record("c03", "due\trighe\r\nin una"));
    const std::string line = "c03\tdue righe in una\t\t\n";  // one match is one line, whatever is stored
    expect({"cerca", "--dizionario", "c:\\PROGRAMMI\\karvel\\Altro.TXT", "c03"}, 0, line, "");
    expect({"cerca", "--dizionario=" + utf8Path(drive.host("C:\\programmi\\Karvel\\altro.txt")), "c03"}, 0,
           line, "");
    environment["KARVEL_DRIVE_C"] = "";
    environment["XDG_DATA_HOME"] = utf8Path(drive.directory().parent_path());
    fs::create_directories(drive.directory().parent_path() / "karvel");
    fs::rename(drive.directory(), drive.directory().parent_path() / "karvel" / "drive_c");
    expect({"cerca", "--modo", "esatto", "d51"}, 0, secondLine, "");
}

TEST_F(CliTest, TellsAFaultyDictionaryAfterTheMatchesBeforeTheFault)
{
    const std::string fault =
        "C'e' un errore nel file dizio.txt ERR>62\nInput oltre la fine del file\n"
        "Ci sono caratteri in meno o in più nel file !\n";
    drive.write(kDictionaryPath, first + second + "\"d51\"\r\n\"tagliata\"\r\n");
    expect({"cerca", "d51"}, 2, firstLine + secondLine, fault);
    drive.write(kDictionaryPath, second + "\"aperta\r\n");
    expect({"cerca", "--modo", "inizia", "c03"}, 2, "", fault);
    drive.files().remove(kDictionaryPath);
    expect({"cerca", "d51"}, 2, "",
           "C'e' un errore nel file dizio.txt ERR>53\nFile non trovato\n"
           "Ci sono caratteri in meno o in più nel file !\n");
}

TEST_F(CliTest, RefusesWrongUseInItalian)
{
    const struct {
        Words words;
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
        {{"cerca", "D51"}, "karvel-cli cerca: non è una sequenza di codici di segni: D51"},
        {{"cerca", "a54"}, "karvel-cli cerca: non è una sequenza di codici di segni: a54"},
        {{"cerca", "a0"}, "karvel-cli cerca: non è una sequenza di codici di segni: a0"},
        {{"cerca", ""}, "karvel-cli cerca: non è una sequenza di codici di segni: "},
        {{"cerca", "--gardiner", "F35-Z999"}, "karvel-cli cerca: numero di Gardiner sconosciuto: \"Z999\""},
        {{"verifica", "a", "b"}, "karvel-cli verifica: argomento di troppo: b"},
        {{"installa", "qui"}, "karvel-cli installa: argomento di troppo: qui"},
    };
    for (const auto& [words, complaint] : cases) {
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 2) << complaint;
        EXPECT_EQ(outcome.out, "") << complaint;
        EXPECT_EQ(outcome.err.substr(0, outcome.err.find('\n')), complaint);
        EXPECT_NE(outcome.err.find("\nUso: karvel-cli "), std::string::npos) << complaint;
    }
}

TEST_F(CliTest, Verifies)
{
    const std::string path = "C:\\programmi\\Karvel\\altro.txt";
    expect({"verifica"}, 0, "3 voci\n", "");
    drive.write(path, "");
    expect({"verifica", path}, 0, "0 voci\n", "");
    drive.write(path, first + second + "\"d51\"\r\n\"tagliata\"\r\n");
    expect({"verifica", path}, 2, "2 voci\n",
           path + ": riga 9: voce incompleta: il file finisce prima del quarto campo\n");
    expect({"verifica", "/nessuna/parte"}, 2, "", "/nessuna/parte: Percorso non trovato\n");
    expect({"verifica", "C:\\programmi"}, 2, "", "C:\\programmi: Errore di accesso al percorso/file\n");
}

TEST_F(CliTest, InstallsTheTree)
{
    environment["KARVEL_DATA"] = KARVEL_SOURCE_DIR "/data/tree";
    const fs::path root = drive.directory().parent_path() / "altrove";
    const fs::path installed = root / "programmi" / "Karvel";
    const Outcome outcome = run({"installa", "--radice", utf8Path(root)});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_GT(std::stoi(outcome.out), 742);
    EXPECT_TRUE(outcome.out.ends_with(" file installati in " + utf8Path(installed) + "\n")) << outcome.out;
    environment["KARVEL_DRIVE_C"] = utf8Path(root);
    expect({"cerca", "--modo", "esatto", "--dizionario", KARVEL_SOURCE_DIR "/data/tree/dizio.txt", "p47"}, 1,
           "", kNothing);
    const Outcome checked = run({"verifica"});
    EXPECT_EQ(checked.status, 0) << checked.err;
    EXPECT_GT(std::stoi(checked.out), 10000);
    expect({"installa"}, 0, "0 file installati in " + utf8Path(installed) + "\n", "");
    environment["KARVEL_DATA"] = utf8Path(root);  // no tree to install from
    EXPECT_EQ(run({"installa"}).status, 2);
}

TEST_F(CliTest, ExplainsItself)
{
    const Outcome help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* const word : {"cerca", "verifica", "installa", "--gardiner", "--radice", "--version"}) {
        EXPECT_NE(help.out.find(word), std::string::npos) << word;
    }
    EXPECT_EQ(run({"cerca", "--help"}).status, 0);
    EXPECT_TRUE(run({"--version"}).out.starts_with("karvel-cli 1."));
}

TEST_F(CliTest, AnOutputThatCannotBeWrittenIsAnError)
{
    const Outcome outcome = run({"cerca", "d51"}, "/dev/full");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err, "");
}

}  // namespace
}  // namespace karvel

#endif
