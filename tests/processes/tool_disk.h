#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/folder/disk_processes.h"

namespace morvane::folder {

// A disk in a temporary folder, with tools that are scripts of this machine's shell.
class ToolDisk {
public:
    ToolDisk();
    ~ToolDisk();
    ToolDisk(const ToolDisk&) = delete;
    ToolDisk& operator=(const ToolDisk&) = delete;

    // The folder that holds the disk, and that of its "/", on this machine.
    [[nodiscard]] std::filesystem::path folder() const { return folder_; }
    [[nodiscard]] std::filesystem::path top() const { return folder_ / "root"; }
    // Where a path of the disk lies on this machine.
    [[nodiscard]] std::filesystem::path at(const std::string& path) const {
        return top().native() + path;
    }

    // Puts a file at `path` of the disk, with the folders above it.
    void write(const std::string& path, const std::string& bytes, bool executable = false) const;
    // A tool whose script is `body`.
    void script(const std::string& path, const std::string& body) const {
        write(path, "#!/bin/sh\n" + body + "\n", true);
    }
    [[nodiscard]] std::string read(const std::string& path) const;

    [[nodiscard]] DiskProcesses& processes() { return *processes_; }
    [[nodiscard]] EffectLog& effects() { return effects_; }

    // Runs a tool without arguments.
    [[nodiscard]] std::optional<ToolResult> run(
        const std::string& path, std::optional<std::chrono::milliseconds> limit = std::nullopt,
        const StopToken& token = {}) {
        return processes_->run(path, {}, limit, token);
    }
    // What the script `body` writes, run as a tool of its own.
    [[nodiscard]] std::string output(const std::string& body);

private:
    std::filesystem::path folder_;
    std::optional<DiskRoot> root_;
    EffectLog effects_;
    std::optional<DiskProcesses> processes_;
};

// Makes a pipe by name and reads one line from it: returns once a tool has written there.
class Gate {
public:
    explicit Gate(const std::filesystem::path& place);
    [[nodiscard]] std::string readLine() const;

private:
    std::filesystem::path place_;
};

// Knows whether any process still holds a pipe by name open for writing.
class Alive {
public:
    explicit Alive(const std::filesystem::path& place);
    // Waits for the last holder to go; false when one is left after a long while.
    [[nodiscard]] bool goes() const;

private:
    Descriptor pipe_;
};

// Whether a process of that number is there and is no zombie.
[[nodiscard]] bool isAlive(const std::string& process);

}  // namespace morvane::folder
