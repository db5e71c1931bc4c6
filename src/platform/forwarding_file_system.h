#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace morvane {

// A file system that hands every question on to another one: the base of those that answer a few
// questions by themselves, or look at what is asked. `files` outlives this.
class ForwardingFileSystem : public FileSystem {
public:
    explicit ForwardingFileSystem(const FileSystem& files) : files_(files) {}

    [[nodiscard]] Result<Attributes> attributes(const std::filesystem::path& path) const override {
        return files_.attributes(path);
    }
    [[nodiscard]] Presence presence(const std::filesystem::path& path) const override {
        return files_.presence(path);
    }
    [[nodiscard]] bool exists(const std::filesystem::path& path) const override {
        return files_.exists(path);
    }
    [[nodiscard]] bool isExecutableFile(const std::filesystem::path& path) const override {
        return files_.isExecutableFile(path);
    }
    [[nodiscard]] Probe probe(const std::filesystem::path& path) const override {
        return files_.probe(path);
    }
    [[nodiscard]] std::string displayName(const std::filesystem::path& path) const override {
        return files_.displayName(path);
    }
    [[nodiscard]] Result<std::vector<ListedEntry>> list(const std::filesystem::path& path,
                                                        Hidden hidden) const override {
        return files_.list(path, hidden);
    }
    [[nodiscard]] Result<std::vector<std::string>> names(
        const std::filesystem::path& path) const override {
        return files_.names(path);
    }
    [[nodiscard]] Result<std::string> readFile(const std::filesystem::path& path,
                                               std::int64_t limit) const override {
        return files_.readFile(path, limit);
    }
    bool walk(const std::filesystem::path& path, const WalkOptions& options, FolderVisit& root,
              const StopToken& token) const override {
        return files_.walk(path, options, root, token);
    }
    [[nodiscard]] TreeSize treeSize(const std::filesystem::path& path, bool withDates,
                                    const StopToken& token) const override {
        return files_.treeSize(path, withDates, token);
    }

protected:
    [[nodiscard]] const FileSystem& files() const { return files_; }

private:
    const FileSystem& files_;
};

}  // namespace morvane
