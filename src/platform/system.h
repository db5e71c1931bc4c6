#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "model/instant.h"
#include "model/vocabulary.h"

namespace morvane {

// An application that is open. `process` tells two of one application apart.
struct RunningApplication {
    std::optional<std::string> bundleIdentifier;
    std::optional<std::filesystem::path> bundlePath;
    std::uint64_t process = 0;
};

// The desktop the user sits at: applications, windows, links. Main thread, unless said otherwise.
class Workspace {
public:
    Workspace() = default;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    virtual ~Workspace() = default;

    [[nodiscard]] virtual std::vector<RunningApplication> runningApplications() const = 0;
    // Asks politely; the application may refuse. Never forces.
    virtual void terminate(const RunningApplication& application) = 0;
    [[nodiscard]] virtual bool isTerminated(const RunningApplication& application) const = 0;

    // Where the system's registry knows an application of that identifier to be. Any thread.
    [[nodiscard]] virtual std::optional<std::filesystem::path> applicationURL(
        const std::string& bundleIdentifier) const = 0;

    virtual void openURL(const std::string& url) = 0;
    virtual void open(const std::filesystem::path& path) = 0;    // by the file's own application
    virtual void reveal(const std::filesystem::path& path) = 0;  // in the file manager
    virtual void activate() = 0;                                 // brings the program to the front
    [[nodiscard]] virtual bool isActive() const = 0;

    // Lets the user choose folders, several at once; nothing when the user dismissed the panel.
    struct FolderPanel {
        std::string prompt;
        std::string message;
        std::filesystem::path directory;
    };
    virtual void chooseFolders(
        const FolderPanel& panel,
        std::function<void(std::optional<std::vector<std::filesystem::path>>)> chosen) = 0;
};

// The metadata store. Any thread.
class MetadataStore {
public:
    MetadataStore() = default;
    MetadataStore(const MetadataStore&) = delete;
    MetadataStore& operator=(const MetadataStore&) = delete;
    virtual ~MetadataStore() = default;

    struct Item {
        std::optional<Instant> lastUsed;
        std::optional<Instant> added;
    };
    // Nothing when the store has no item of that path.
    [[nodiscard]] virtual std::optional<Item> item(const std::filesystem::path& path) const = 0;
    // When the item came into its folder, as the file system remembers it.
    [[nodiscard]] virtual std::optional<Instant> addedToFolder(
        const std::filesystem::path& path) const = 0;
    // A creation date that stands in for the file system's own; nothing where there is none.
    [[nodiscard]] virtual std::optional<Instant> created(
        const std::filesystem::path& path) const = 0;
};

// The notification centre. Main thread; answers come on the main thread, at a later turn.
class NotificationCenter {
public:
    NotificationCenter() = default;
    NotificationCenter(const NotificationCenter&) = delete;
    NotificationCenter& operator=(const NotificationCenter&) = delete;
    virtual ~NotificationCenter() = default;

    virtual void readStatus(std::function<void(PermissionStatus)> answer) = 0;
    // Asks the user once; `done` comes whatever the answer. `options` as the system counts them.
    virtual void requestAuthorization(int options, std::function<void()> done) = 0;
    // One of the same identifier replaces an earlier one.
    virtual void post(const std::string& identifier, const std::string& title,
                      const std::string& body) = 0;
};

struct VolumeFigures {
    std::optional<std::string> name;
    std::optional<std::int64_t> total;
    std::optional<std::int64_t> available;
    std::optional<std::int64_t> availableForImportantUsage;
};

// The startup volume. Any thread.
class Volume {
public:
    Volume() = default;
    Volume(const Volume&) = delete;
    Volume& operator=(const Volume&) = delete;
    virtual ~Volume() = default;

    // Nothing when the query failed; a figure that is missing the system does not know.
    [[nodiscard]] virtual std::optional<VolumeFigures> figures() const = 0;
    // The device that "/" is mounted from, such as "/dev/disk3s1s1".
    [[nodiscard]] virtual std::optional<std::string> mountedFrom() const = 0;
};

// What the program's own bundle says; a value may be missing in the bundle.
struct BundleInfo {
    std::optional<std::string> identifier;
    std::optional<std::string> shortVersion;
    std::optional<std::string> version;
    std::optional<std::string> copyright;
    // Where the list of versions lies, and the ed25519 key, in base64, that signs them. Without
    // either nothing is looked for.
    std::optional<std::string> updateFeed;
    std::optional<std::string> updateKey;
};

// What comes with the program's own bundle beside its information, read when it is asked for. This
// one is empty. Main thread.
class BundleResources {
public:
    BundleResources() = default;
    BundleResources(const BundleResources&) = delete;
    BundleResources& operator=(const BundleResources&) = delete;
    virtual ~BundleResources() = default;

    // The address of the product's web site.
    [[nodiscard]] virtual std::string website() const { return {}; }
    // The text of "Acknowledgements.txt"; nothing where it is missing or cannot be read.
    [[nodiscard]] virtual std::optional<std::string> acknowledgements() const {
        return std::nullopt;
    }
};

inline const BundleResources emptyBundle;

}  // namespace morvane
