#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "model/disk.h"
#include "platform/platform.h"
#include "tasks/stop_token.h"

namespace morvane {

// The figures that the volume itself answers, the rest as in an empty record; nothing when the
// query failed or knows no total or no available capacity. Costs no walking.
[[nodiscard]] std::optional<DiskUsage> quickMeasure(const Volume& volume);

// `disk` with the four figures of the volume taken over from `figures`.
[[nodiscard]] DiskUsage withVolumeFigures(DiskUsage disk, const DiskUsage& figures);

// The folders that are walked for a category, in order.
[[nodiscard]] std::vector<std::filesystem::path> categoryFolders(DiskCategory category,
                                                                 const std::filesystem::path& home);

// What the system's own volumes hold, as diskutil tells it for the container that "/" belongs to;
// nothing when it cannot be known. Waits for the tool without a limit, for as long as `token` lets.
[[nodiscard]] std::optional<std::int64_t> measureSystemBytes(const Platform& platform,
                                                             const StopToken& token);

// The sum that measureSystemBytes takes from diskutil's output, `device` being what "/" is mounted
// from ("/dev/disk3s1s1"), where that is known.
[[nodiscard]] std::optional<std::int64_t> systemBytesFrom(std::string_view propertyList,
                                                          const std::optional<std::string>& device);

// The stored form: JSON as a standard encoder writes it, "measured" being a flat list in which raw
// value and bytes alternate.
[[nodiscard]] std::string encodeDiskUsage(const DiskUsage& disk);
// Nothing for data of any other form.
[[nodiscard]] std::optional<DiskUsage> decodeDiskUsage(std::string_view json);

}  // namespace morvane
