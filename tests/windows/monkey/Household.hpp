#pragma once

#include <QTranslator>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "app/Session.hpp"
#include "support/TemporaryDrive.hpp"
#include "windows/main/Form1.hpp"
#include "windows/signs/PictureStore.hpp"
#include "windows/signs/SignMenu.hpp"
#include "windows/support/Desktop.hpp"
#include "windows/support/Prompt.hpp"
#include "windows/support/WindowSet.hpp"

namespace karvel::testing {

/// A computer of its own in a temporary directory: drive C: with the whole installation, and around it what
/// the program has no business to touch. The process's home, its configuration, its temporary files and its
/// path are moved there, so that whatever is written astray is written there.
class Household {
  public:
    /// `extra` is appended to the shipped dictionary.
    explicit Household(const std::string& extra);

    [[nodiscard]] const TemporaryDrive& drive() const { return drive_; }
    /// Where printed sheets may go.
    [[nodiscard]] std::filesystem::path printouts() const { return base_ / "stampe"; }

    /// What of the things outside the installation is not as it was; empty when all is.
    [[nodiscard]] std::string touched() const;
    /// What of the dictionary is not as it was, but for records added to it; empty when all is. Looks at the
    /// bytes only when the file has changed.
    [[nodiscard]] std::string dictionaryBroken();
    /// The same for the whole dictionary, record by record, and for the signs' pictures. Slow.
    [[nodiscard]] std::string brokenAtTheEnd() const;
    /// Puts the directory of the signs back, as somebody who installs again does.
    void restoreSignDirectory() const;

  private:
    using Snapshot = std::map<std::string, std::string>;

    [[nodiscard]] Snapshot outside() const;

    TemporaryDrive drive_;
    std::filesystem::path base_;
    std::filesystem::path dictionary_;
    Snapshot asItWas_;
    std::string records_;
    std::filesystem::file_time_type changedAt_;
};

/// One run of the program, put together as the program itself does it.
class Run {
  public:
    explicit Run(const Household& household);

    /// Start-up, with its boxes, to the first window shown; false when it ended the program.
    [[nodiscard]] bool start(bool splash);

    [[nodiscard]] Session& session() { return session_; }
    [[nodiscard]] Form1* form1() { return form1_.get(); }

  private:
    PictureStore pictures_;
    Prompt prompt_;
    WindowSet windows_;
    Session session_;
    Desktop desktop_;
    std::unique_ptr<Form1> form1_;
    std::unique_ptr<SignMenu> signMenu_;
};

}  // namespace karvel::testing
