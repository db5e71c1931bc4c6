#pragma once

#include <cerrno>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/folder/removal_calls.h"

namespace morvane::folder {

// The real calls, taken down by their names, of which one or all of a name can be made to fail.
class RecordingCalls final : public RemovalCalls {
public:
    // Every call of this name fails so, until errno 0 is given.
    void failAll(const std::string& name, int code) { all_[name] = code; }
    // The call of this name that comes as number `number`, counted from 1, fails so.
    void failOne(const std::string& name, int number, int code) { one_[{name, number}] = code; }
    // Called ahead of every call, with its name and that of the item.
    std::function<void(const std::string& call, const std::string& item)> before;
    // May change what was found.
    std::function<void(struct statx& facts)> afterLook;
    // What a rename that failed left undone is seen here too: every call that was asked for.
    std::vector<std::pair<std::string, std::string>> asked;

    [[nodiscard]] int count(const std::string& name) const {
        const auto found = counts_.find(name);
        return found == counts_.end() ? 0 : found->second;
    }

    int open(int folder, const std::string& name, int flags) override {
        return fails("open", name) ? -1 : RemovalCalls::open(folder, name, flags);
    }
    int look(int folder, const std::string& name, struct statx& facts) override {
        if (fails("look", name)) return -1;
        const int result = RemovalCalls::look(folder, name, facts);
        if (result == 0 && afterLook) afterLook(facts);
        return result;
    }
    ssize_t list(int folder, void* buffer, std::size_t size) override {
        return fails("list", "") ? -1 : RemovalCalls::list(folder, buffer, size);
    }
    int makeFolder(int folder, const std::string& name, mode_t mode) override {
        return fails("makeFolder", name) ? -1 : RemovalCalls::makeFolder(folder, name, mode);
    }
    int rename(int fromFolder, const std::string& from, int toFolder,
               const std::string& to) override {
        return fails("rename", from) ? -1 : RemovalCalls::rename(fromFolder, from, toFolder, to);
    }
    int unlink(int folder, const std::string& name) override {
        return fails("unlink", name) ? -1 : RemovalCalls::unlink(folder, name);
    }
    int removeFolder(int folder, const std::string& name) override {
        return fails("removeFolder", name) ? -1 : RemovalCalls::removeFolder(folder, name);
    }
    ssize_t realPath(int item, char* buffer, std::size_t size) override {
        return fails("realPath", "") ? -1 : RemovalCalls::realPath(item, buffer, size);
    }
    int openMountTable() override {
        return fails("openMountTable", "") ? -1 : RemovalCalls::openMountTable();
    }

private:
    bool fails(const std::string& call, const std::string& item) {
        if (before) before(call, item);
        asked.emplace_back(call, item);
        const int number = ++counts_[call];
        int code = all_[call];
        if (const auto found = one_.find({call, number}); found != one_.end()) code = found->second;
        errno = code;
        return code != 0;
    }

    std::map<std::string, int> counts_;
    std::map<std::string, int> all_;
    std::map<std::pair<std::string, int>, int> one_;
};

// The names of the calls, for tests that let each fail in turn.
inline const std::vector<std::string> callNames = {"open",         "look",     "list",
                                                   "makeFolder",   "rename",   "unlink",
                                                   "removeFolder", "realPath", "openMountTable"};

}  // namespace morvane::folder
