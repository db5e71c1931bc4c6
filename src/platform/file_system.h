#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/cleanup.h"
#include "model/instant.h"
#include "platform/failure.h"
#include "tasks/stop_token.h"

namespace morvane {

enum class EntryKind : std::uint8_t {
    file,
    folder,
    link,  // a symbolic link, never followed
    other  // a pipe, a socket, a device: never opened
};

// What a file system says of an item itself; a link is described, not followed.
struct Attributes {
    EntryKind kind = EntryKind::other;
    std::int64_t allocatedBytes = 0;  // blocks on disk, of this item alone
    std::optional<Instant> modified;
    std::optional<Instant> created;  // nothing where the file system keeps none
    bool isExecutable = false;       // a file somebody may execute
    bool isPackage = false;          // a folder that the user sees as one file
    bool isVolume = false;           // a folder at which another volume is mounted
    bool isAlias = false;            // a file that stands for another one
    bool isHidden = false;           // a leading dot, or the hidden flag
    FolderIdentity folder;           // the folder it lies in
};

// One entry of a listing.
struct ListedEntry {
    std::filesystem::path path;
    Attributes attributes;
};

enum class Hidden : std::uint8_t { skipped, included };

// Whether an item is there, asked of the item itself. `unknown`: could not look, which is never
// taken for gone where something would be deleted or forgotten because of it.
enum class Presence : std::uint8_t { there, gone, unknown };

// What came of opening an item read-only, as a probe of what the system lets through.
enum class Probe : std::uint8_t { opened, refused, failed };

struct TreeSize {
    std::int64_t bytes = 0;         // allocated sizes of the regular files
    std::optional<Instant> newest;  // latest modification of a regular file, when asked for
    bool isUnreadable = false;      // the folder itself could not be listed to its end
};

// A folder that a deep walk is in. Valid for the length of the call it is handed to, or longer
// where a visit of it is alive.
class WalkedFolder {
public:
    WalkedFolder() = default;
    WalkedFolder(const WalkedFolder&) = delete;
    WalkedFolder& operator=(const WalkedFolder&) = delete;
    virtual ~WalkedFolder() = default;
    // Built anew at each call, so asked only for what is kept.
    [[nodiscard]] virtual std::filesystem::path path() const = 0;
    // Asked of the open folder; unknown where the system does not say.
    [[nodiscard]] virtual FolderIdentity identity() const = 0;
};

// One entry in a deep walk. `name` is valid for the length of the call.
struct WalkedEntry {
    std::string_view name;
    EntryKind kind = EntryKind::other;
    bool isPackage = false;
    bool isVolume = false;
    bool isAlias = false;
    bool isHidden = false;
    // Of files alone (folders, links and the rest have none unless WalkOptions asks for them).
    bool hasAttributes = false;  // false too where the item vanished or could not be asked
    bool isExecutable = false;
    std::int64_t allocatedBytes = 0;
    std::optional<Instant> modified;
    std::optional<Instant> created;
};

// What a walk makes of one folder. The calls for one visit never overlap; those for different
// folders run at the same time on several threads.
class FolderVisit {
public:
    FolderVisit() = default;
    FolderVisit(const FolderVisit&) = delete;
    FolderVisit& operator=(const FolderVisit&) = delete;
    virtual ~FolderVisit() = default;

    // Some of the folder's entries, in the file system's order, each once.
    virtual void entries(const WalkedFolder& folder, std::span<const WalkedEntry> batch) = 0;
    // What to make of `entry`, a folder; null leaves it out with all below. Asked after the batch
    // that holds it.
    virtual std::unique_ptr<FolderVisit> enter(const WalkedFolder& folder,
                                               const WalkedEntry& entry) = 0;
    // A folder that was entered has ended, with all below it; `path` is the folder's.
    virtual void ended(std::unique_ptr<FolderVisit> child) = 0;
};

struct WalkOptions {
    bool dates = false;       // modification dates of files
    bool created = false;     // creation dates of files
    bool executable = false;  // execute bits of files
    bool links = false;       // sizes of links and of the rest, as for files
};

// Reading a disk. Every function may be called from any thread at any time; none follows a link at
// the end of a path unless it says so, while links further up are followed as the disk has them.
class FileSystem {
public:
    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem() = default;

    [[nodiscard]] virtual Result<Attributes> attributes(
        const std::filesystem::path& path) const = 0;
    [[nodiscard]] virtual Presence presence(const std::filesystem::path& path) const = 0;
    // Whether the path leads to something, following links at its end too. False where that could
    // not be found out: for offering things alone, never for deciding what went.
    [[nodiscard]] virtual bool exists(const std::filesystem::path& path) const = 0;
    // The same, and it is a file that may be executed.
    [[nodiscard]] virtual bool isExecutableFile(const std::filesystem::path& path) const = 0;
    [[nodiscard]] virtual Probe probe(const std::filesystem::path& path) const = 0;
    // The name the user sees, with its extension unless the system hides it.
    [[nodiscard]] virtual std::string displayName(const std::filesystem::path& path) const = 0;

    // The entries of a folder in the file system's order; a link at the end of `path` is followed.
    [[nodiscard]] virtual Result<std::vector<ListedEntry>> list(const std::filesystem::path& path,
                                                                Hidden hidden) const = 0;

    // The names alone, hidden ones too: costs no look at each entry.
    [[nodiscard]] virtual Result<std::vector<std::string>> names(
        const std::filesystem::path& path) const;

    // The bytes of a regular file of at most `limit` bytes, links followed; a longer one, a pipe, a
    // device is a failure and is not read.
    [[nodiscard]] virtual Result<std::string> readFile(const std::filesystem::path& path,
                                                       std::int64_t limit) const = 0;

    // Walks everything below the folder `path` (a link at its end is followed), hidden files and
    // the insides of packages too, following no link further down, on several threads where that
    // pays. Goes on past what cannot be read. False when the folder itself could not be opened,
    // and then `root` was asked nothing. When `token` says stop, ends within 4,096 entries; visits
    // begun are still ended.
    virtual bool walk(const std::filesystem::path& path, const WalkOptions& options,
                      FolderVisit& root, const StopToken& token) const = 0;

    // The same walk, adding up. A folder that cannot be opened is unreadable, with 0 and no date.
    [[nodiscard]] virtual TreeSize treeSize(const std::filesystem::path& path, bool withDates,
                                            const StopToken& token) const = 0;
};

}  // namespace morvane
