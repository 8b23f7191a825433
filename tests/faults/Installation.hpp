#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "app/Session.hpp"
#include "cards/CardEditor.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel::testing {

/// Answers every question with yes, or with no where `agrees` is false. Keeps all texts that were shown.
class RecordingUi : public UserInterface {
  public:
    Button ask(const MessageBox& box) override
    {
        told += box.text + "\n";
        return box.buttons != Buttons::YesNo ? Button::Ok : agrees ? Button::Yes : Button::No;
    }
    std::optional<std::string> input(const std::string&, const std::string&) override { return "nuova"; }
    void beep() override {}
    void setBusy(bool) override {}
    bool continueReading(std::uint64_t, std::uint64_t) override { return true; }

    bool agrees = true;
    std::string told;
};

/// Paths below the installation, with "/" between names, and the bytes of the files.
using Files = std::map<std::string, std::string>;

/// An installation with content in every file. One sign is composed and the card PROVA is loaded.
class Installation {
  public:
    Installation();

    /// Runs `work` and returns the text of all boxes and of an uncaught error; empty when nothing was shown.
    std::string attempt(const std::function<void(Installation&)>& work);

    /// All files, without the temporary ones that a killed program may leave.
    [[nodiscard]] Files files() const;
    [[nodiscard]] std::filesystem::path root() const { return drive.host("C:\\programmi\\Karvel"); }

    /// What an installation is made from: one file of 60 bytes.
    [[nodiscard]] std::filesystem::path dataTree() const { return drive.directory().parent_path() / "tree"; }

    TemporaryDrive drive;
    RecordingUi ui;
    FakePictures pictures;
    RecordedWindows windows;
    Session session{drive.files(), pictures, ui, windows};
    CardEditor cards{drive.files(), ui, session.display(), session.palette()};
};

struct Operation {
    std::string_view name;
    std::function<void(Installation&)> work;
};

/// One operation for each kind of file that the program writes.
[[nodiscard]] const std::vector<Operation>& writings();

/// One operation for each kind of file that the program reads.
[[nodiscard]] const std::vector<Operation>& readings();

/// Whether `file` is a cache that may be lost: a failed write to it is no failure of the operation.
[[nodiscard]] bool isCache(std::string_view file);

}  // namespace karvel::testing
