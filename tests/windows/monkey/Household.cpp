#include "windows/monkey/Household.hpp"

#include <fstream>
#include <iterator>

#include "app/Installer.hpp"
#include "app/StartUp.hpp"
#include "dictionary/Verification.hpp"
#include "windows/SplashWindow.hpp"

namespace karvel::testing {

namespace fs = std::filesystem;

namespace {

constexpr const char* kDictionary = "C:\\programmi\\Karvel\\dizio.txt";

std::string contentOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

fs::path shipped(const char* name)
{
    return fs::path(KARVEL_SOURCE_DIR) / "data" / "tree" / name;
}

/// What the toolkit keeps for itself: the last directory of its file dialog, the fonts that it has seen.
bool belongsToTheToolkit(const std::string& relative)
{
    return relative.starts_with("config/QtProject.conf") || relative.starts_with("cache/fontconfig");
}

void writeProgram(const fs::path& path, const char* script)
{
    std::ofstream(path) << script;
    fs::permissions(path, fs::perms::owner_all);
}

}  // namespace

Household::Household(const std::string& extra)
    : base_(drive_.directory().parent_path()), dictionary_(drive_.host(kDictionary))
{
    installTree(fs::path(KARVEL_SOURCE_DIR) / "data" / "tree", drive_.files().drives());
    const std::string shipped = drive_.read(kDictionary);
    drive_.write(kDictionary, extra + shipped);
    for (const char* const directory :
         {"home", "config", "cache", "data", "run", "tmp", "bin", "stampe", "drive_x/foto"}) {
        fs::create_directories(base_ / directory);
    }
    for (const char* const near : {"C:\\letto.txt", "C:\\programmi\\Karvel2\\dizio.txt", "X:\\foto\\a01.gif",
                                   "C:\\programmi\\altro.txt"}) {
        drive_.write(near, "non toccare");
    }
    fs::permissions(base_ / "run", fs::perms::owner_all);
    // Nobody reads a page of links here, and no printer prints.
    writeProgram(base_ / "bin" / "xdg-open", "#!/bin/sh\nexit 3\n");
    const std::string at = base_.string();
    for (const auto& [name, value] : std::map<const char*, std::string>{
             {"HOME", at + "/home"},
             {"XDG_CONFIG_HOME", at + "/config"},
             {"XDG_CACHE_HOME", at + "/cache"},
             {"XDG_DATA_HOME", at + "/data"},
             {"XDG_RUNTIME_DIR", at + "/run"},
             {"TMPDIR", at + "/tmp"},
             {"CUPS_SERVER", "127.0.0.1:1"},
             {"PATH", at + "/bin:" + qEnvironmentVariable("PATH").toStdString()}}) {
        qputenv(name, QByteArray::fromStdString(value));
    }
    fs::current_path(base_ / "home");
    records_ = contentOf(dictionary_);
    changedAt_ = fs::last_write_time(dictionary_);
    asItWas_ = outside();
}

Household::Snapshot Household::outside() const
{
    Snapshot found;
    const fs::path root = drive_.host("C:\\programmi\\Karvel");
    std::error_code error;
    for (auto at = fs::recursive_directory_iterator(base_, error); at != fs::recursive_directory_iterator();
         at.increment(error)) {
        if (at->path() == root || at->path() == printouts()) {
            at.disable_recursion_pending();
            continue;
        }
        const std::string relative = at->path().lexically_relative(base_).string();
        if (belongsToTheToolkit(relative)) {
            continue;
        }
        if (at->is_directory(error)) {
            found[relative] = "directory";
        } else {
            found[relative] = std::to_string(at->file_size(error)) + " " +
                              std::to_string(at->last_write_time(error).time_since_epoch().count());
        }
    }
    return found;
}

std::string Household::touched() const
{
    const Snapshot now = outside();
    for (const auto& [path, state] : now) {
        if (const auto before = asItWas_.find(path); before == asItWas_.end() || before->second != state) {
            return "written outside the installation: " + path;
        }
    }
    return now.size() == asItWas_.size() ? "" : "deleted outside the installation";
}

std::string Household::dictionaryBroken()
{
    std::error_code error;
    const auto size = fs::file_size(dictionary_, error);
    const auto changed = fs::last_write_time(dictionary_, error);
    if (error) {
        return "dizio.txt has gone";
    }
    if (size == records_.size() && changed == changedAt_) {
        return {};
    }
    changedAt_ = changed;
    std::string now = contentOf(dictionary_);
    if (!now.starts_with(records_)) {
        return "records of dizio.txt were changed";
    }
    records_ = std::move(now);
    return {};
}

std::string Household::brokenAtTheEnd() const
{
    const auto dictionary = drive_.files().open(kDictionary);
    if (const Verification read = verify(*dictionary); read.fault) {
        return "dizio.txt, line " + std::to_string(read.fault->line) + ": " + read.fault->reason;
    }
    for (const auto& picture : fs::directory_iterator(shipped("GR"))) {
        const fs::path installed = drive_.host("C:\\programmi\\Karvel\\GR") / picture.path().filename();
        if (contentOf(picture.path()) != contentOf(installed)) {
            return "the picture of a sign was changed: " + picture.path().filename().string();
        }
    }
    for (const auto& file : fs::recursive_directory_iterator(drive_.host("C:\\programmi\\Karvel"))) {
        if (file.path().filename().string().find('~') != std::string::npos) {
            return "left behind: " + file.path().filename().string();
        }
    }
    return {};
}

void Household::restoreSignDirectory() const
{
    drive_.write("C:\\programmi\\Karvel\\settaggi\\conf2.cfg", contentOf(shipped("settaggi/conf2.cfg")));
}

Run::Run(const Household& household)
    : pictures_(household.drive().files().drives()),
      session_(household.drive().files(), pictures_, prompt_, windows_),
      desktop_(session_, pictures_)
{
}

bool Run::start(bool splash)
{
    if (formLoad(session_) != StartUp::Ready) {
        return false;
    }
    form1_ = std::make_unique<Form1>(desktop_, windows_);
    windows_.attach(desktop_, *form1_);
    signMenu_ = std::make_unique<SignMenu>(desktop_, windows_);
    QObject::connect(&prompt_, &Prompt::aboutToAsk, form1_.get(), &Form1::showState);
    QObject::connect(&prompt_, &Prompt::progress, form1_.get(), &Form1::showProgress);
    form1_->showState();
    if (splash) {
        (new frmSplash(desktop_, *form1_))->openInFront();
    } else {
        form1_->show();
    }
    return true;
}

}  // namespace karvel::testing
