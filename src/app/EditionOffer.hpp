#pragma once

#include "base/UserInterface.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

/// Holds the checksum of the edition about which the user was asked last.
inline constexpr std::string_view kEditionAnswerPath = "C:\\programmi\\Karvel\\settaggi\\edizione.txt";

/// The first start of an installation that came without a dictionary: puts the edition in its place. A
/// dictionary that is deleted later is not replaced. A failure here is not reported; the next reading of the
/// dictionary reports it.
void provideDictionary(const FileSystem& files);

/// Notes that the user has the present edition, so that the next start does not ask. A failure to write the
/// note is ignored: the next start finds nothing to update.
void keepEditionAnswer(const FileSystem& files);

/// After start-up: asks, once for each edition, whether the user's dictionary shall be updated to it. Asks
/// nothing when there is nothing to update, when the files cannot be read, or when the answer could not be
/// stored. Failures of the update are reported to the user.
void offerEdition(const FileSystem& files, UserInterface& ui);

/// The menu "Aggiorna dizionario...": tells what the update would do, asks, and does it. Throws RuntimeError
/// when a file cannot be read or written; the dictionary is then as it was.
void updateDictionary(const FileSystem& files, UserInterface& ui);

}  // namespace karvel
