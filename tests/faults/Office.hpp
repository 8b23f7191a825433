#pragma once

#include <array>
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

/// A user who agrees to everything and remembers what was said.
class Agreeing : public UserInterface {
  public:
    Button ask(const MessageBox& box) override
    {
        told += box.text + "\n";
        return box.buttons == Buttons::YesNo ? Button::Yes : Button::Ok;
    }
    std::optional<std::string> input(const std::string&, const std::string&) override { return typed; }
    void beep() override {}
    void setBusy(bool busy) override { busyDepth += busy ? 1 : -1; }
    bool continueReading(std::uint64_t done, std::uint64_t) override { return done < stopReadingAt; }

    std::string told;
    std::string typed = "nuova";
    int busyDepth = 0;
    std::uint64_t stopReadingAt = ~std::uint64_t{0};
};

/// What lies below the installation: paths with "/" between names, and bytes.
using Files = std::map<std::string, std::string>;

/// A whole installation with something in every file, and all that works on it. A sign is composed and the
/// card PROVA is loaded.
class Office {
  public:
    Office();

    /// Composes a sign and loads the card, as far as the files allow.
    void begin();

    /// What went wrong while `work` ran: the boxes and what nobody caught, in the words that the user reads;
    /// empty when nothing was said.
    std::string attempt(const std::function<void(Office&)>& work);

    /// What is there now. What a killed program left beside its files is passed over.
    [[nodiscard]] Files files() const;
    [[nodiscard]] std::filesystem::path root() const { return drive.host("C:\\programmi\\Karvel"); }

    TemporaryDrive drive;
    Agreeing ui;
    FakePictures pictures;
    RecordedWindows windows;
    Session session{drive.files(), pictures, ui, windows};
    CardEditor cards{drive.files(), ui, session.display(), session.palette()};
};

/// Something that a user does and that ends in files.
struct Deed {
    const char* name;
    std::function<void(Office&)> work;
};

/// Every kind of writing that the program does.
[[nodiscard]] const std::vector<Deed>& deeds();

/// Every kind of reading.
[[nodiscard]] const std::vector<Deed>& readings();

/// Files that are kept for comfort only: failing to write them is no failure.
[[nodiscard]] bool comfort(std::string_view file);

}  // namespace karvel::testing
