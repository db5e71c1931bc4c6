#pragma once

#include "platform/folder/host.h"
#include "platform/system.h"

namespace morvane::folder {

// What comes with the bundle as the host's answers have it at present. They outlive this object.
class DiskResources final : public BundleResources {
public:
    explicit DiskResources(const HostAnswers& host) : host_(host) {}

    [[nodiscard]] std::string website() const override { return host_.current()->website; }
    [[nodiscard]] std::optional<std::string> acknowledgements() const override {
        return host_.current()->acknowledgements;
    }

private:
    const HostAnswers& host_;
};

}  // namespace morvane::folder
