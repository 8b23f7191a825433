#include "support/TemporaryDrive.hpp"

#include <atomic>
#include <fstream>
#include <iterator>

#include "files/HostFile.hpp"
#include "text/CodePage.hpp"
#include "text/FieldWriter.hpp"

namespace karvel::testing {

namespace fs = std::filesystem;

namespace {

fs::path freshDirectory()
{
    static std::atomic<int> number = 0;
    const fs::path directory = fs::temp_directory_path() / ("karvel-test-" + std::to_string(processNumber()) +
                                                            "-" + std::to_string(number++));
    fs::remove_all(directory);
    fs::create_directories(directory / "drive_c" / "programmi" / "Karvel");
    return directory;
}

}  // namespace

TemporaryDrive::TemporaryDrive() : directory_(freshDirectory()), files_(Drives(directory_ / "drive_c")) {}

TemporaryDrive::~TemporaryDrive()
{
    std::error_code ignored;
    fs::remove_all(directory_, ignored);
}

fs::path TemporaryDrive::host(std::string_view systemPath) const
{
    return files_.drives().toHost(systemPath);
}

void TemporaryDrive::write(std::string_view systemPath, std::string_view bytes) const
{
    const fs::path path = host(systemPath);
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string TemporaryDrive::read(std::string_view systemPath) const
{
    std::ifstream file(host(systemPath), std::ios::binary);
    return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "(none)";
}

void TemporaryDrive::writeSettings() const
{
    write("C:\\programmi\\Karvel\\settaggi\\conf.cfg", " 3\r\n");
    write("C:\\programmi\\Karvel\\settaggi\\conf2.cfg", "C:\\Programmi\\Karvel\\GR\r\n");
    write("C:\\programmi\\Karvel\\settaggi\\coloreD.prf", " 8421376\r\n");
    write("C:\\programmi\\Karvel\\settaggi\\coloreF.prf", " 12632256\r\n");
    write("C:\\programmi\\Karvel\\dizio.txt", "");
}

std::string record(std::string_view signs, std::string_view translation, std::string_view transliteration,
                   std::string_view note)
{
    return quotedLine(signs) + quotedLine(translation) + quotedLine(transliteration) + quotedLine(note);
}

}  // namespace karvel::testing
