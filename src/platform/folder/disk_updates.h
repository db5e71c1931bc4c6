#pragma once

#include "platform/folder/effect_log.h"
#include "platform/folder/host.h"
#include "platform/updates.h"

namespace morvane::folder {

// An update service that looks nowhere: being asked to check is an effect. Whether a check can
// start follows the host's answers; the switches begin as they have them when this is made, and
// from then on only the program changes them. Both outlive this object.
class DiskUpdates final : public UpdateService {
public:
    DiskUpdates(const HostAnswers& host, EffectLog& effects);

    // To be called when the host's answers about updates were given anew.
    void canCheckReplaced();

    void start() override {}
    void checkForUpdates() override;
    [[nodiscard]] bool canCheckForUpdates() const override { return canCheck_; }
    [[nodiscard]] Subscription observeCanCheck(std::function<void()> changed) override;
    [[nodiscard]] bool automaticallyChecks() const override { return checks_; }
    void setAutomaticallyChecks(bool checks) override { checks_ = checks; }
    [[nodiscard]] bool automaticallyDownloads() const override { return downloads_; }
    void setAutomaticallyDownloads(bool downloads) override { downloads_ = downloads; }

private:
    const HostAnswers& host_;
    EffectLog& effects_;
    bool canCheck_;
    bool checks_;
    bool downloads_;
    Changes changes_;
};

}  // namespace morvane::folder
