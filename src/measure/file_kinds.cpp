#include "measure/file_kinds.h"

#include <algorithm>
#include <string>

#include "measure/file_types.h"
#include "model/letters.h"

namespace morvane {

namespace {

struct KindOfExtension {
    std::string_view extension;
    FileKind kind;
};

constexpr KindOfExtension documentBundles[] = {
    {"fcpbundle", FileKind::video},
    {"imovielibrary", FileKind::video},
    {"fcpxbundle", FileKind::video},
    {"pvm", FileKind::diskImage},
    {"vmwarevm", FileKind::diskImage},
    {"utm", FileKind::diskImage},
    {"sparsebundle", FileKind::diskImage},
    {"logicx", FileKind::audio},
    {"band", FileKind::audio},
    {"key", FileKind::document},
    {"pages", FileKind::document},
    {"numbers", FileKind::document},
};

// Kinds that hold whatever the type of the extension is said to be.
constexpr KindOfExtension plainFiles[] = {
    {"dmg", FileKind::diskImage},   {"iso", FileKind::diskImage},
    {"img", FileKind::diskImage},   {"sparseimage", FileKind::diskImage},
    {"vdi", FileKind::diskImage},   {"vmdk", FileKind::diskImage},
    {"vhd", FileKind::diskImage},   {"vhdx", FileKind::diskImage},
    {"qcow2", FileKind::diskImage}, {"hdd", FileKind::diskImage},
    {"ipsw", FileKind::diskImage},  {"zip", FileKind::archive},
    {"xip", FileKind::archive},     {"tar", FileKind::archive},
    {"gz", FileKind::archive},      {"tgz", FileKind::archive},
    {"bz2", FileKind::archive},     {"xz", FileKind::archive},
    {"7z", FileKind::archive},      {"rar", FileKind::archive},
    {"zst", FileKind::archive},     {"pkg", FileKind::archive},
};

constexpr std::string_view programParts[] = {"dylib", "so", "node", "a", "o", "pack", "idx"};

constexpr std::string_view foldersNeverEntered[] = {
    "node_modules",  "bower_components", "Pods",   "Carthage",
    "DerivedData",   "SourcePackages",   "venv",   "site-packages",
    "dist-packages", "__pycache__",      "vendor", "target",
    "build"};

constexpr std::string_view extensionsNeverEntered[] = {
    "framework", "xcframework", "bundle", "appex", "plugin", "kext", "xcarchive", "dSYM", "lproj"};

template <class Table>
std::optional<FileKind> kindIn(const Table& table, std::string_view extension) {
    const auto found = std::ranges::find(table, extension, &KindOfExtension::extension);
    return found == std::ranges::end(table) ? std::nullopt : std::optional(found->kind);
}

template <class List>
bool holds(const List& list, std::string_view word) {
    return std::ranges::find(list, word) != std::ranges::end(list);
}

}  // namespace

std::string_view extensionOf(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0) return {};
    return name.substr(dot + 1);
}

std::optional<FileKind> documentBundleKind(std::string_view name) {
    return kindIn(documentBundles, lowercased(extensionOf(name)));
}

FileKind fileKind(std::string_view name) {
    const std::string extension = lowercased(extensionOf(name));
    if (const auto kind = kindIn(documentBundles, extension)) return *kind;
    if (const auto kind = kindIn(plainFiles, extension)) return *kind;
    return kindOfType(extension).value_or(FileKind::other);
}

bool isProgramPart(std::string_view name, bool isExecutable) {
    const std::string extension = lowercased(extensionOf(name));
    if (extension.empty()) return isExecutable;
    return holds(programParts, extension) || isExecutableType(extension);
}

bool isNeverEntered(std::string_view folderName) {
    return holds(foldersNeverEntered, folderName) ||
           holds(extensionsNeverEntered, extensionOf(folderName));
}

}  // namespace morvane
