#pragma once

namespace karvel {

class Session;

/// Opens the page of links, kept with the program, in the user's browser; says so when that fails.
void openLinkPage(Session& session);

}  // namespace karvel
