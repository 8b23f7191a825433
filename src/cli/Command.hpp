#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "files/FileSystem.hpp"

namespace karvel::cli {

/// What a command tells the shell.
enum class Exit : int { Done = 0, Nothing = 1, Error = 2 };

/// Wrong use of a command: reported with the usage, exit status 2.
class UsageError {
  public:
    explicit UsageError(std::string message) : message_(std::move(message)) {}
    [[nodiscard]] const std::string& message() const { return message_; }

  private:
    std::string message_;
};

using Arguments = std::vector<std::string>;  ///< UTF-8

struct Command {
    std::string_view name;
    std::string_view usage;  ///< what follows the name
    std::string_view help;   ///< one line, Italian
    Exit (*run)(const Arguments& arguments);
};

/// All commands in the order of the help.
[[nodiscard]] std::span<const Command> commands();

/// Takes `--name VALUE` or `--name=VALUE` out of `arguments`; empty when it is not there.
/// Throws UsageError when the value is missing.
[[nodiscard]] std::string takeOption(Arguments& arguments, std::string_view name);

/// Takes the switch `--name` out of `arguments`; true when it was there.
[[nodiscard]] bool takeSwitch(Arguments& arguments, std::string_view name);

/// Throws UsageError for an unknown option, and unless `arguments` then holds from `least` to `most`
/// words. A word "--" ends the options.
void expectWords(Arguments& arguments, std::size_t least, std::size_t most);

/// The sign codes that the user gave, or, with `gardiner`, Gardiner numbers joined by "-".
/// Throws UsageError for what is neither.
[[nodiscard]] std::string codesFrom(const std::string& given, bool gardiner);

/// Message on standard error, ended by a line end.
void complain(std::string_view message);

Exit search(const Arguments& arguments);
/// The words of `phrase`, sign codes, one a line; what remains on standard error.
Exit splitPhrase(const FileSystem& files, std::string_view path, std::string_view phrase);
Exit findWords(const Arguments& arguments);
Exit searchItalian(const Arguments& arguments);
Exit readPassage(const Arguments& arguments);
Exit transcribeName(const Arguments& arguments);
Exit addEntry(const Arguments& arguments);
Exit updateEdition(const Arguments& arguments);
Exit verifyFile(const Arguments& arguments);
Exit install(const Arguments& arguments);
Exit printBlocks(const Arguments& arguments);
Exit drawPhrase(const Arguments& arguments);

}  // namespace karvel::cli
