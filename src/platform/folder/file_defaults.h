#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/defaults.h"
#include "platform/folder/disk_root.h"
#include "platform/folder/newest_writer.h"
#include "platform/formats/property_list.h"

namespace morvane::folder {

// Defaults kept in a property list file of a disk, which is read once, when this is made. Values
// under keys that the program does not know stay in the file. A file that is not there, cannot be
// read or is no dictionary counts as empty, and the next write replaces it.
//
// Each write hands the whole list to one writer thread (NewestWriter). A write that fails leaves
// the old file and nothing else; the next one tries again, and where none comes the last is tried
// once more at the end. A value that would make the list larger than can be read back is not taken:
// the old one stays.
class FileDefaults : public Defaults {
public:
    // `path` is in the disk's terms; `disk` outlives this.
    FileDefaults(const DiskRoot& disk, std::filesystem::path path);
    // What was written before reaches the disk first.
    ~FileDefaults() override;

    [[nodiscard]] std::optional<bool> boolean(const std::string& key) const override;
    [[nodiscard]] std::optional<std::string> text(const std::string& key) const override;
    [[nodiscard]] std::optional<Instant> date(const std::string& key) const override;
    [[nodiscard]] std::optional<std::string> data(const std::string& key) const override;
    [[nodiscard]] std::optional<std::vector<std::string>> texts(
        const std::string& key) const override;

    // A text or a key that is not UTF-8 or has a NUL in it is not taken. A date comes back from the
    // file to the microsecond.
    void setBoolean(const std::string& key, bool value) override;
    void setText(const std::string& key, const std::string& value) override;
    void setDate(const std::string& key, Instant value) override;
    void setData(const std::string& key, const std::string& bytes) override;
    void setTexts(const std::string& key, const std::vector<std::string>& values) override;
    void remove(const std::string& key) override;

    void flush() override;

    // From now on no write changes anything. What was written before still reaches the disk; a
    // write that failed is tried for the last time.
    void stop();

private:
    [[nodiscard]] const PropertyList* find(const std::string& key) const;
    void set(const std::string& key, PropertyList::Value value);
    // Hands the list over. False where it could not be read back.
    bool store();

    PropertyList list_;
    bool isStopped_ = false;
    NewestWriter writer_;
};

}  // namespace morvane::folder
