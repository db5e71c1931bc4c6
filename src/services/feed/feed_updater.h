#pragma once

#include <QNetworkAccessManager>
#include <QSslConfiguration>
#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "platform/defaults.h"
#include "platform/system.h"
#include "platform/updates.h"
#include "services/feed/feed_choice.h"
#include "services/feed/fetch.h"
#include "services/feed/kept_file.h"
#include "services/feed/update_prompt.h"
#include "services/feed/update_words.h"
#include "tasks/scope.h"

namespace morvane {

// Finds new versions in a feed of the product's own and fetches them; installing is the user's.
//
// Where the bundle names no https address, no key, or no version to compare with, it can never
// check and asks nothing of the network. A check the user asked for is answered whatever comes of
// it; one of the schedule, once a day while that is switched on, only by a newer version. With
// downloads switched on too, the schedule fetches each version once by itself. Main thread.
class FeedUpdater final : public UpdateService {
public:
    struct Options {
        std::filesystem::path downloads;  // a folder of this machine, made when first needed
        // Whom to trust; a test trusts itself alone.
        QSslConfiguration security = QSslConfiguration::defaultConfiguration();
        std::chrono::nanoseconds silence = std::chrono::seconds(30);
    };

    // The runtime, `defaults` and `prompt` outlive this; what is under way when it goes is dropped,
    // with what was written of it, and told to nobody.
    FeedUpdater(Runtime runtime, Defaults& defaults, UpdatePrompt& prompt, const BundleInfo& bundle,
                Options options);
    ~FeedUpdater() override;

    void start() override;
    void checkForUpdates() override;
    [[nodiscard]] bool canCheckForUpdates() const override;
    [[nodiscard]] Subscription observeCanCheck(std::function<void()> changed) override;
    [[nodiscard]] bool automaticallyChecks() const override;
    void setAutomaticallyChecks(bool checks) override;
    [[nodiscard]] bool automaticallyDownloads() const override;
    void setAutomaticallyDownloads(bool downloads) override;

    // Fetches the version that was found and shown last; nothing where there is none.
    void download();
    // The user closed what was shown: a download under way stops, and its file goes.
    void dismiss();

private:
    enum class Occasion : std::uint8_t { asked, scheduled };
    struct Download;

    void check(Occasion occasion);
    void takeFeed(Occasion occasion, FetchEnd how);
    void takeChoice(Occasion occasion, FeedChoice choice);
    void beginDownload(Occasion occasion);
    [[nodiscard]] bool takePiece(QByteArrayView piece);
    void takeDownload(FetchEnd how);
    static Task<void> verify(FeedUpdater* self, std::shared_ptr<Download> download, PublicKey key);

    void keep();
    // Ends what was under way, and says so to one who asked.
    void tell(Occasion occasion, const UpdateMessage& message);
    void failDownload(Occasion occasion, UpdateOffer offer, UpdateFailure failure);
    void failDownload(UpdateFailure failure);  // the one under way
    void becomeIdle();
    void plan();  // the schedule's next check

    Runtime runtime_;
    Defaults& defaults_;
    UpdatePrompt& prompt_;
    Options options_;
    QUrl address_;
    std::optional<PublicKey> key_;
    std::string version_;
    std::string shownVersion_;

    QNetworkAccessManager network_;
    std::unique_ptr<Fetch> fetch_;  // of the feed or of the download
    std::string feed_;
    std::optional<UpdateOffer> offer_;    // shown to the user, or being fetched
    std::shared_ptr<Download> download_;  // until its file has its name
    bool isStarted_ = false;
    bool isBusy_ = false;
    std::optional<Executor::Timer> planned_;
    Changes canCheckChanges_;
    Scope scope_;  // cancelled first
};

}  // namespace morvane
