#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "files/FileSystem.hpp"

namespace karvel {

inline constexpr std::string_view kCardDirectory = "C:\\programmi\\Karvel\\GeroLink\\";
inline constexpr std::string_view kCardListPath = "C:\\programmi\\Karvel\\GeroLink\\speciale.txt";
inline constexpr std::string_view kLastCardPath = "C:\\programmi\\Karvel\\GeroLink\\schedepref.txt";
inline constexpr std::string_view kFirstCardPath = "C:\\programmi\\Karvel\\GeroLink\\uomini.txt";

/// Signs that a card has room for.
inline constexpr std::size_t kCardSigns = 48;

/// The image of the sign `code` on a card: always the installation's, whatever directory the user has chosen
/// for the palette, so that a card looks the same everywhere.
[[nodiscard]] std::string cardImage(std::string_view code);

/// The cards on the disk: a file of signs each, their list, and the note of the one loaded last.
///
/// A card's file is only reached through `path`, which throws RuntimeError 52 for a name that cardNameRefusal
/// refuses, so that no other file can be read, changed or deleted in the name of a card. All functions throw
/// RuntimeError when a file cannot be read or written. What is rewritten is rewritten whole or left as it
/// was.
class CardFiles {
  public:
    explicit CardFiles(const FileSystem& files) : files_(files) {}

    [[nodiscard]] static std::string path(std::string_view name);

    [[nodiscard]] bool exists(std::string_view name) const { return files_.exists(path(name)); }

    /// The non-empty fields of the card in the file's order, also those that are no codes. Codes are in small
    /// letters, as everywhere in the system, whatever the file holds.
    [[nodiscard]] std::vector<std::string> read(std::string_view name) const;

    /// The fields of the card that the window opens with; none when its file is missing.
    [[nodiscard]] std::vector<std::string> readFirst() const;

    /// Adds the sign `code` at the end of the card.
    void append(std::string_view name, std::string_view code) const;

    /// Makes the card `name` with the one sign a01 and puts it at the end of the list. Throws RuntimeError 75
    /// when there is such a file already. On failure neither is made.
    void crea(std::string_view name) const;

    /// Takes every `code` out of the card.
    void removeSign(std::string_view name, std::string_view code) const;

    /// Deletes the card's file and its name in the list; a missing file is none to delete.
    void remove(std::string_view name) const;

    /// The non-empty fields of the list; none when its file is missing.
    [[nodiscard]] std::vector<std::string> list() const;

    /// Puts `name` at the end of the list unless it is there.
    void enlist(std::string_view name) const;

    /// Takes `name` out of the list.
    void strike(std::string_view name) const;

    /// The name of the card loaded last, in upper case; empty when none is noted.
    [[nodiscard]] std::string last() const;

    /// Notes `name` as the card loaded last.
    void remember(std::string_view name) const;

    /// Deletes that note if it names `name`.
    void forget(std::string_view name) const;

  private:
    [[nodiscard]] std::vector<std::string> signsOf(std::string_view path) const;
    [[nodiscard]] std::vector<std::string> fieldsOf(std::string_view path) const;

    const FileSystem& files_;
};

}  // namespace karvel
