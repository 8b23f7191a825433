#pragma once

#include "base/UserInterface.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

/// After start-up: where the data directory cannot be written, tells the user so. From then on the undo
/// state, the search mode, the colours and the sign directory are kept in memory alone, until the program
/// ends.
void keepInMemoryWhatCannotBeWritten(const FileSystem& files, UserInterface& ui);

}  // namespace karvel
