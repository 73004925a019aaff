#pragma once

#include <string>

#include "app/session/session.h"

namespace kestrin::session {

/// Takes the pictures of docs/guide.md, named guide-*.png, of a session that has just begun: the
/// window with its parts numbered, the four previews, the job sheet, the overwrite question.
/// Failure: a picture that cannot be written is told on stderr.
void ShootGuide(Session& session, const std::string& folder);

}  // namespace kestrin::session
