#pragma once

class QObject;

namespace karvel {

class Session;

/// Opens the page of links, kept with the program, in the user's browser; says so when that fails, be it
/// some seconds later. `owner` must not outlive the session.
void openLinkPage(Session& session, QObject& owner);

}  // namespace karvel
