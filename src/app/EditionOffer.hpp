#pragma once

#include "base/UserInterface.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

/// Where it is kept which edition the user has been asked about: its checksum.
inline constexpr std::string_view kEditionAnswerPath = "C:\\programmi\\Karvel\\settaggi\\edizione.txt";

/// The first start of an installation that came without a dictionary: puts the edition in its place. A
/// dictionary that goes missing later is the user's care. A failure is left to what needs the dictionary.
void provideDictionary(const FileSystem& files);

/// The user has the present edition and need not be asked about it. Where that cannot be kept, the next start
/// sees it in the dictionary.
void keepEditionAnswer(const FileSystem& files);

/// After start-up: asks, once for each edition, whether the user's dictionary shall be updated to it. Asks
/// nothing where there is nothing to update, where the files cannot be read, or where the answer could not
/// be kept. Failures of the update are told to the user.
void offerEdition(const FileSystem& files, UserInterface& ui);

/// The menu "Aggiorna dizionario...": tells what the update would do, asks, and does it. Throws RuntimeError
/// when a file cannot be read or written; the dictionary is then as it was.
void updateDictionary(const FileSystem& files, UserInterface& ui);

}  // namespace karvel
