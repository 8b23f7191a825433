#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "dictionary/Verification.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

/// The dictionary as it came with the program. The program never writes into this copy.
inline constexpr std::string_view kEditionPath = "C:\\programmi\\Karvel\\edizione\\dizio.txt";

/// What becomes of the user's dictionary when it is updated to the edition.
struct EditionUpdate {
    std::uint64_t editionRecords = 0;
    std::uint64_t records = 0;     ///< in the user's dictionary, up to its fault if it has one
    std::uint64_t ownRecords = 0;  ///< those that no edition held: the user entered or changed them
    std::optional<Fault> fault;    ///< of the user's dictionary; it is not updated then
    std::string before;            ///< the bytes of the user's dictionary
    std::string after;             ///< the records of the edition, then the user's own

    [[nodiscard]] bool changesNothing() const { return before == after; }
};

/// Works out the update and writes nothing. Throws RuntimeError when a file cannot be read, or when the
/// edition itself is faulty (62).
[[nodiscard]] EditionUpdate planUpdate(const FileSystem& files);

/// Carries `update` out, which must be without a fault. Returns the system path under which the old
/// dictionary is kept; nothing when there was nothing to change. Where the dictionary has changed since the
/// plan was made, `update` becomes a new plan first. Throws RuntimeError; the dictionary is then as it was.
std::string carryOut(EditionUpdate& update, const FileSystem& files);

}  // namespace karvel
