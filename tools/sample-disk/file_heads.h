#pragma once

#include <string>
#include <string_view>

namespace morvane::sample {

/// The first bytes that a file of this name has in real life ("%PDF-1.7", a movie's "ftyp" atom),
/// so that what looks at contents takes it for what its name says. Empty for other extensions.
[[nodiscard]] std::string headOf(std::string_view path);

}  // namespace morvane::sample
