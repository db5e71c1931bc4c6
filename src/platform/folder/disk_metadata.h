#pragma once

#include "platform/folder/host.h"
#include "platform/system.h"

namespace morvane::folder {

// The metadata store as the host's answers have it, by the text of the standardised path. The
// answers outlive this object.
class DiskMetadata final : public MetadataStore {
public:
    explicit DiskMetadata(const HostAnswers& host) : host_(host) {}

    [[nodiscard]] std::optional<Item> item(const std::filesystem::path& path) const override;
    [[nodiscard]] std::optional<Instant> addedToFolder(
        const std::filesystem::path& path) const override;
    [[nodiscard]] std::optional<Instant> created(const std::filesystem::path& path) const override;

private:
    const HostAnswers& host_;
};

}  // namespace morvane::folder
