#include "platform/folder/folder_names.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <dirent.h>

#include "platform/folder/item_facts.h"

namespace morvane::folder {

FolderNames readNames(RemovalCalls& calls, int folder) {
    FolderNames names;
    alignas(dirent64) std::array<char, 32768> buffer{};
    while (true) {
        const ssize_t filled = calls.list(folder, buffer.data(), buffer.size());
        if (filled < 0) names.error = errno;
        if (filled <= 0) return names;
        for (ssize_t at = 0; at < filled;) {
            const char* const record = buffer.data() + at;
            decltype(dirent64::d_reclen) length = 0;
            decltype(dirent64::d_type) type = 0;
            std::memcpy(&length, record + offsetof(dirent64, d_reclen), sizeof length);
            std::memcpy(&type, record + offsetof(dirent64, d_type), sizeof type);
            std::string name = record + offsetof(dirent64, d_name);
            at += length;
            if (name == "." || name == "..") continue;
            bool isFolder = type == DT_DIR;
            if (type == DT_UNKNOWN) {
                const Result<ItemFacts> facts = lookAt(calls, folder, name);
                isFolder = facts.ok() && facts->isFolder;
            }
            (isFolder ? names.folders : names.others).push_back(std::move(name));
        }
    }
}

}  // namespace morvane::folder
