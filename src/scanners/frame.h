#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/cleanup.h"
#include "scanners/scan_context.h"

namespace morvane::CleanupScanner {

// What measuring one path gave. `folder` is the folder the item lies in.
struct Measure {
    std::int64_t bytes = 0;
    std::optional<Instant> newest;
    FolderIdentity folder;
    bool isUnreadable = false;  // a folder that could not be listed
};

// The children of a folder without the hidden ones; empty when it cannot be listed.
[[nodiscard]] std::vector<std::filesystem::path> listFolder(const ScanContext& scan,
                                                            const std::filesystem::path& url);

// A folder by all it holds, anything else by itself; a link is not followed. 0 bytes and no date
// for what cannot be read.
[[nodiscard]] Measure measure(const ScanContext& scan, const std::filesystem::path& url);

// Everything below `url` by allocated size, hidden files and packages too, links not followed.
[[nodiscard]] TreeSize folderSize(const ScanContext& scan, const std::filesystem::path& url,
                                  bool withDates);

// Each URL of at least one byte, in order; once cancelled, the rest is passed over.
[[nodiscard]] std::vector<CleanupPart> measureParts(const ScanContext& scan,
                                                    const std::vector<std::filesystem::path>& urls);

[[nodiscard]] std::int64_t totalSize(const ScanContext& scan,
                                     const std::vector<std::filesystem::path>& urls);

// Largest first; items of equal size keep their order.
[[nodiscard]] std::vector<CleanupItem> sortedBySize(std::vector<CleanupItem> items);

// "Used yesterday"; empty without a date, and a date to come reads as today.
[[nodiscard]] std::string usedWords(std::optional<Instant> date, Instant now, const Region& region);

// At least three pieces between dots, none empty, of letters, numbers, "-" and "_".
[[nodiscard]] bool looksLikeBundleID(std::string_view name);

// The word of a bundle identifier that names the app: "com.acme.writer.mac" gives "Writer".
[[nodiscard]] std::string prettyAppName(std::string_view bundleID);

// Lower case, letters alone: "Google Chrome 2" gives "googlechrome".
[[nodiscard]] std::string normalisedName(std::string_view text);

// The path with the home folder as "~".
[[nodiscard]] std::string shortened(const ScanContext& scan, const std::filesystem::path& url);

// A tool that is to be read; nothing when it could not be started or ended with another status
// than 0.
[[nodiscard]] std::optional<std::string> toolOutput(const ScanContext& scan,
                                                    const std::filesystem::path& executable,
                                                    const std::vector<std::string>& arguments,
                                                    std::chrono::seconds limit);

}  // namespace morvane::CleanupScanner
