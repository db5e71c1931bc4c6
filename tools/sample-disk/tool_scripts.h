#pragma once

#include <string_view>

namespace morvane::sample {

// Stand-ins for the tools that a cleaner asks, as scripts for any POSIX shell. Each prints what the
// real tool prints and keeps its state in a plain file below private/var/db, so that what it is
// told to delete is gone at the next question. Arguments that it does not know are refused.

/// Simulator runtimes: lists them and deletes one.
extern const std::string_view xcrunScript;

/// What containers take up, and the four ways to give it back.
extern const std::string_view dockerScript;

/// Containers and volumes of the startup disk.
extern const std::string_view diskutilScript;

/// Loaded agents of the session: lets one go.
extern const std::string_view launchctlScript;

}  // namespace morvane::sample
