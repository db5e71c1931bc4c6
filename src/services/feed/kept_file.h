#pragma once

#include <QByteArrayView>
#include <filesystem>
#include <optional>
#include <string>

namespace morvane {

// A download that is not worth a name yet: a hidden file of its own in the folder it will lie in,
// which goes again unless it is given its name. Not to be used on two threads at once.
class KeptFile {
public:
    // Makes the folder too where it is missing. Nothing where that fails.
    [[nodiscard]] static std::optional<KeptFile> create(const std::filesystem::path& folder);
    KeptFile(KeptFile&& other) noexcept;
    KeptFile& operator=(KeptFile&&) = delete;
    ~KeptFile();

    // False where not everything could be written.
    [[nodiscard]] bool append(QByteArrayView bytes) const;
    [[nodiscard]] int descriptor() const { return file_; }
    // Waits until the content is on the disk; false where it did not get there. Any thread.
    [[nodiscard]] bool flush() const;

    // Gives it `name`, or "name 2", "name 3"… where that is taken: nothing is ever replaced. Where
    // it then lies, or nothing; it stays without a name then.
    [[nodiscard]] std::optional<std::filesystem::path> place(const std::string& name);

private:
    KeptFile(int file, std::filesystem::path path) : file_(file), path_(std::move(path)) {}

    int file_;
    std::filesystem::path path_;  // empty once it has its name
};

// A name for what lies at the end of the path of an address: one part of a path, not hidden, not
// empty, of at most 255 bytes.
[[nodiscard]] std::string nameForDownload(const std::string& lastPart);

}  // namespace morvane
