#pragma once

namespace karvel {

/// Starts the program, runs it to its end and returns its exit status: 1 when start-up failed.
/// The option --senza-apertura leaves out the opening window.
int runApplication(int argc, char** argv);

}  // namespace karvel
