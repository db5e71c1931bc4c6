#pragma once

#include <cstdint>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

namespace morvane::test {

// A disk in a folder of its own, removed with all in it at the end. Paths are the disk's own
// ("/Users/sam/a"); parents are made. Everything made here is 100 days old by the disk's clock
// where nothing else is said, since "now" stands in host.json: 2026-06-15T12:00:00Z.
class TestDisk {
public:
    // Where the disk lies: in memory where there is plenty, or where a file's room is set aside
    // without being written, for files of hundreds of megabytes.
    enum class For { quickness, bigFiles };
    static constexpr std::int64_t now = 1781524800;
    static constexpr double day = 86400;

    explicit TestDisk(For purpose = For::quickness);
    ~TestDisk();
    TestDisk(const TestDisk&) = delete;
    TestDisk& operator=(const TestDisk&) = delete;

    // What host.json will say: home, now, a granted access and a volume of 500 GB with 100 GB free
    // to begin with.
    nlohmann::json host;
    void writeHost() const;

    [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }
    [[nodiscard]] std::filesystem::path real(const std::string& path) const;

    void makeFolder(const std::string& path);
    // A file with that much room on the disk, rounded up to whole blocks of 4,096 bytes.
    void file(const std::string& path, std::int64_t bytes, double daysOld = 100);
    void text(const std::string& path, const std::string& content, double daysOld = 100);
    void link(const std::string& path, const std::string& target);
    void hardLink(const std::string& path, const std::string& existing);
    void pipe(const std::string& path);
    void socket(const std::string& path);
    // `body` is what stands inside <plist>.
    void propertyList(const std::string& path, const std::string& body);
    // A property list that is a dictionary of texts.
    void texts(const std::string& path, const std::map<std::string, std::string>& values);
    // An executable script of the shell.
    void tool(const std::string& path, const std::string& script);
    // A bundle of `bytes` with an identifier; none where it is empty.
    void app(const std::string& path, const std::string& identifier, std::int64_t bytes = 100000);
    void setAge(const std::string& path, double days);

    // Whether an item stands there, be it a link that leads nowhere.
    [[nodiscard]] bool has(const std::string& path) const;
    [[nodiscard]] std::string content(const std::string& path) const;
    // Names in the folder, in order; empty when it is not there.
    [[nodiscard]] std::vector<std::string> names(const std::string& path) const;
    void remove(const std::string& path);

    // A pipe beside root/ that a tool waits at with `read line < "$MORVANE_DISK/NAME"`.
    void gate(const std::string& name);
    // Returns once a tool waits there and keeps it waiting; the descriptor is given to `open`.
    [[nodiscard]] int waitAtGate(const std::string& name) const;
    static void open(int gate);

private:
    std::filesystem::path folder_;
};

}  // namespace morvane::test
