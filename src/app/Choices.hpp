#pragma once

#include <map>
#include <string>
#include <string_view>

#include "files/FileSystem.hpp"

namespace karvel {

inline constexpr std::string_view kChoicesPath = "C:\\programmi\\Karvel\\settaggi\\scelte.txt";

/// What the program remembers of its windows from one start to the next: texts by their names. The file has a
/// line "name=text" for each, UTF-8. A file that is missing, damaged or cannot be written is no failure: the
/// choices then last until the program ends.
class Choices {
  public:
    /// `files` must outlive the object. The file is read when the first text is asked for.
    explicit Choices(const FileSystem& files) : files_(files) {}

    /// Empty when there is none.
    [[nodiscard]] std::string get(std::string_view name);

    /// Neither `name` nor `text` holds a line end; `name` holds no "=".
    void set(const std::string& name, const std::string& text);

  private:
    void load();

    const FileSystem& files_;
    bool loaded_ = false;
    std::map<std::string, std::string, std::less<>> texts_;
};

}  // namespace karvel
