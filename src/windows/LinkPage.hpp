#pragma once

class QObject;

namespace karvel {

class Session;

/// Opens the installed page of links in the user's browser. A failure is reported in a box, possibly some
/// seconds later. `owner` must not outlive the session.
void openLinkPage(Session& session, QObject& owner);

}  // namespace karvel
