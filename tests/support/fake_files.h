#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace morvane::fakes {

struct FakeNode;

// A disk in memory. It answers as the interface promises, lists in the order in which things were
// made, can be told to refuse, and remembers what it was asked. Any thread.
class FakeFiles : public FileSystem {
public:
    FakeFiles();
    ~FakeFiles() override;

    // Making the disk. Missing folders above are made; what stands at the place is replaced.
    void addFolder(const std::filesystem::path& path);
    void addFile(const std::filesystem::path& path, std::int64_t bytes,
                 std::optional<Instant> modified = {});
    // A file of one block of 4,096 bytes with something in it.
    void addContents(const std::filesystem::path& path, std::string contents);
    void addLink(const std::filesystem::path& path, std::filesystem::path target,
                 std::int64_t bytes = 0);
    void addOther(const std::filesystem::path& path);
    void change(const std::filesystem::path& path, const std::function<void(Attributes&)>& change);
    void setExecutable(const std::filesystem::path& path);
    void setDisplayName(const std::filesystem::path& path, std::string name);
    void remove(const std::filesystem::path& path);
    // False, with nothing done, when there is no `from`, or when anything stands at `to`.
    bool move(const std::filesystem::path& from, const std::filesystem::path& to);

    // Faults. What is refused cannot be listed or opened (EPERM), with all below it; it can still
    // be asked for its attributes.
    void refuseReading(const std::filesystem::path& path);
    void allowReading(const std::filesystem::path& path);
    // The item is listed, and asking it for anything is an EIO.
    void breakAttributes(const std::filesystem::path& path);

    // Runs before each question is looked at, in the asking thread, with the question and the path,
    // such as "list" and "/Applications": to change the disk while it is looked at, or to wait.
    using Watcher = std::function<void(std::string_view question, const std::filesystem::path&)>;
    void watch(Watcher watcher);
    // What was asked, such as "list /Applications", in order.
    [[nodiscard]] std::vector<std::string> history() const;
    [[nodiscard]] bool wasAsked(std::string_view question) const;
    // Every item there is, in order of paths; to compare before and after.
    [[nodiscard]] std::vector<std::filesystem::path> everything() const;
    // The identity of an existing folder.
    [[nodiscard]] FolderIdentity identity(const std::filesystem::path& folder) const;

    [[nodiscard]] Result<Attributes> attributes(const std::filesystem::path& path) const override;
    [[nodiscard]] Presence presence(const std::filesystem::path& path) const override;
    [[nodiscard]] bool exists(const std::filesystem::path& path) const override;
    [[nodiscard]] bool isExecutableFile(const std::filesystem::path& path) const override;
    [[nodiscard]] Probe probe(const std::filesystem::path& path) const override;
    [[nodiscard]] std::string displayName(const std::filesystem::path& path) const override;
    [[nodiscard]] Result<std::vector<ListedEntry>> list(const std::filesystem::path& path,
                                                        Hidden hidden) const override;
    [[nodiscard]] Result<std::string> readFile(const std::filesystem::path& path,
                                               std::int64_t limit) const override;
    bool walk(const std::filesystem::path& path, const WalkOptions& options, FolderVisit& root,
              const StopToken& token) const override;
    [[nodiscard]] TreeSize treeSize(const std::filesystem::path& path, bool withDates,
                                    const StopToken& token) const override;

private:
    friend class FakeWalk;
    enum class LastLink : std::uint8_t { isItself, isFollowed };

    // All of these with mutex_ held.
    [[nodiscard]] Result<FakeNode*> find(const std::filesystem::path& path, LastLink last) const;
    [[nodiscard]] Result<FakeNode*> findReadable(const std::filesystem::path& path) const;
    FakeNode& make(const std::filesystem::path& path, EntryKind kind);

    void ask(std::string_view question, const std::filesystem::path& path) const;

    mutable std::mutex mutex_;
    std::unique_ptr<FakeNode> root_;
    std::uint64_t lastInode_ = 1;
    mutable std::vector<std::string> history_;
    Watcher watcher_;
};

}  // namespace morvane::fakes
