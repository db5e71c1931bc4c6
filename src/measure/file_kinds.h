#pragma once

#include <optional>
#include <string_view>

#include "model/vocabulary.h"

namespace morvane {

// What follows the last dot of a file's name, as it is written there; empty for a name without one,
// and a leading or trailing dot makes no extension.
[[nodiscard]] std::string_view extensionOf(std::string_view name);

// The kind of a package that is somebody's document, such as a film project or a virtual machine;
// nothing for every other package. Upper and lower case are the same in all that follows.
[[nodiscard]] std::optional<FileKind> documentBundleKind(std::string_view name);

// The kind of a file or of a document bundle, `other` where nothing is known.
[[nodiscard]] FileKind fileKind(std::string_view name);

// Whether a plain file is a part of a program, which nobody removes by hand: a name without an
// extension that may be executed, a library, an object file, a piece of a version store.
[[nodiscard]] bool isProgramPart(std::string_view name, bool isExecutable);

// Whether a plain folder of that name holds build output, dependencies or parts of programs, so
// that nothing in it is anybody's own file. As written, letter for letter.
[[nodiscard]] bool isNeverEntered(std::string_view folderName);

}  // namespace morvane
