#include "services/feed/feed_updater.h"

#include <QUrl>
#include <utility>

#include "services/feed/check_schedule.h"
#include "services/feed/version.h"
#include "tasks/background.h"

namespace morvane {

namespace {

constexpr std::int64_t largestFeed = 1'000'000;

constexpr const char* checksKey = "automaticallyChecksForUpdates";
constexpr const char* downloadsKey = "automaticallyDownloadsUpdates";
constexpr const char* lastCheckKey = "lastUpdateCheck";
constexpr const char* fetchedVersionKey = "lastDownloadedUpdate";

UpdateFailure failureOf(FetchEnd how) {
    switch (how) {
        case FetchEnd::refused:
            return UpdateFailure::refused;
        case FetchEnd::notSecure:
            return UpdateFailure::notSecure;
        case FetchEnd::sentInCircles:
            return UpdateFailure::sentInCircles;
        case FetchEnd::tooLarge:
            return UpdateFailure::tooLarge;
        case FetchEnd::silent:
            return UpdateFailure::silent;
        case FetchEnd::notKept:
            return UpdateFailure::notWritten;
        case FetchEnd::complete:
        case FetchEnd::unreachable:
            break;
    }
    return UpdateFailure::unreachable;
}

}  // namespace

struct FeedUpdater::Download {
    KeptFile file;
    UpdateOffer offer;
    Occasion occasion = Occasion::asked;
    std::int64_t received = 0;
    int shownPercent = 0;
};

FeedUpdater::FeedUpdater(Runtime runtime, Defaults& defaults, UpdatePrompt& prompt,
                         const BundleInfo& bundle, Options options)
    : runtime_(runtime),
      defaults_(defaults),
      prompt_(prompt),
      options_(std::move(options)),
      address_(QString::fromStdString(bundle.updateFeed.value_or("")), QUrl::StrictMode),
      key_(readPublicKey(bundle.updateKey.value_or(""))),
      version_(bundle.version.value_or("")),
      shownVersion_(bundle.shortVersion.value_or(version_)),
      scope_(runtime) {}

FeedUpdater::~FeedUpdater() {
    if (planned_) runtime_.executor.cancel(*planned_);
}

void FeedUpdater::start() {
    isStarted_ = true;
    plan();
}

void FeedUpdater::checkForUpdates() {
    check(Occasion::asked);
}

bool FeedUpdater::canCheckForUpdates() const {
    return isSecureAddress(address_) && key_ && isVersion(version_) && !isBusy_;
}

Subscription FeedUpdater::observeCanCheck(std::function<void()> changed) {
    return canCheckChanges_.observe(std::move(changed));
}

bool FeedUpdater::automaticallyChecks() const {
    return defaults_.boolean(checksKey).value_or(false);
}

void FeedUpdater::setAutomaticallyChecks(bool checks) {
    defaults_.setBoolean(checksKey, checks);
    plan();
}

bool FeedUpdater::automaticallyDownloads() const {
    return defaults_.boolean(downloadsKey).value_or(false);
}

void FeedUpdater::setAutomaticallyDownloads(bool downloads) {
    defaults_.setBoolean(downloadsKey, downloads);
}

void FeedUpdater::download() {
    // It wins over a check that is under way, which would only find the same.
    if (offer_ && !download_) beginDownload(Occasion::asked);
}

void FeedUpdater::dismiss() {
    if (!download_) offer_.reset();
    // One that the schedule began is not what was closed.
    if (!download_ || download_->occasion == Occasion::scheduled) return;
    offer_.reset();
    // Where its signature is being looked at, the file goes once that has ended.
    download_.reset();
    fetch_.reset();
    becomeIdle();
}

void FeedUpdater::check(Occasion occasion) {
    if (!canCheckForUpdates()) return;
    isBusy_ = true;
    feed_.clear();
    defaults_.setDate(lastCheckKey, runtime_.executor.now());
    fetch_ = std::make_unique<Fetch>(
        network_, runtime_.executor, address_,
        Fetch::Rules{largestFeed, options_.silence, options_.security},
        [this](QByteArrayView piece) {
            feed_.append(piece.data(), static_cast<std::size_t>(piece.size()));
            return true;
        },
        [this, occasion](FetchEnd how) { takeFeed(occasion, how); });
    canCheckChanges_.tell();
}

void FeedUpdater::takeFeed(Occasion occasion, FetchEnd how) {
    fetch_.reset();
    const std::string bytes = std::exchange(feed_, {});
    if (how != FetchEnd::complete) return tell(occasion, checkFailedMessage(failureOf(how)));
    const auto items = readFeed(bytes);
    if (!items) return tell(occasion, checkFailedMessage(UpdateFailure::unreadableFeed));
    takeChoice(occasion, chooseUpdate(*items, version_));
}

void FeedUpdater::takeChoice(Occasion occasion, FeedChoice choice) {
    if (std::holds_alternative<NothingNewer>(choice)) {
        return tell(occasion, upToDateMessage(shownVersion_));
    }
    if (std::holds_alternative<NothingUsable>(choice)) {
        return tell(occasion, checkFailedMessage(UpdateFailure::unusable));
    }
    offer_ = std::get<UpdateOffer>(std::move(choice));
    if (occasion == Occasion::scheduled && automaticallyDownloads()) {
        // The user was told of it when it came.
        if (defaults_.text(fetchedVersionKey) == offer_->version) return becomeIdle();
        return beginDownload(occasion);
    }
    const UpdateMessage message = foundMessage(*offer_, shownVersion_);
    becomeIdle();
    prompt_.show(message);
}

void FeedUpdater::beginDownload(Occasion occasion) {
    const bool wasBusy = std::exchange(isBusy_, true);
    auto file = KeptFile::create(options_.downloads);
    if (!file) return failDownload(occasion, *offer_, UpdateFailure::notWritten);
    download_ = std::make_shared<Download>(Download{std::move(*file), *offer_, occasion});
    // What the feed says is the most that is taken; the limit over all was looked at before.
    fetch_ = std::make_unique<Fetch>(
        network_, runtime_.executor, offer_->address,
        Fetch::Rules{offer_->length, options_.silence, options_.security},
        [this](QByteArrayView piece) { return takePiece(piece); },
        [this](FetchEnd how) { takeDownload(how); });
    if (!wasBusy) canCheckChanges_.tell();
    if (occasion == Occasion::asked) prompt_.show(downloadingMessage(download_->offer, 0));
}

bool FeedUpdater::takePiece(QByteArrayView piece) {
    if (!download_->file.append(piece)) return false;
    download_->received += piece.size();
    const int percent = static_cast<int>(download_->received * 100 / download_->offer.length);
    const bool isNew = std::exchange(download_->shownPercent, percent) != percent;
    if (isNew && download_->occasion == Occasion::asked) {
        prompt_.show(downloadingMessage(download_->offer, download_->received));
    }
    return true;
}

void FeedUpdater::takeDownload(FetchEnd how) {
    fetch_.reset();
    if (how != FetchEnd::complete) return failDownload(failureOf(how));
    if (download_->received != download_->offer.length) {
        return failDownload(UpdateFailure::incomplete);
    }
    scope_.start(verify(this, download_, *key_));
}

Task<void> FeedUpdater::verify(FeedUpdater* self, std::shared_ptr<Download> download,
                               PublicKey key) {
    bool isSigned = false;
    bool isWritten = false;
    co_await background([&](const StopToken&) {
        isSigned = verifies(download->file.descriptor(), key, download->offer.signature);
        isWritten = isSigned && download->file.flush();
    });
    // Cancelled: the updater is gone. Another download, or none: the user stopped this one.
    TaskContext& context = co_await currentContext();
    if (context.token.stop_requested() || self->download_ != download) co_return;
    if (!isSigned) co_return self->failDownload(UpdateFailure::wrongSignature);
    if (!isWritten) co_return self->failDownload(UpdateFailure::notWritten);
    self->keep();
}

void FeedUpdater::keep() {
    const std::string name =
        nameForDownload(download_->offer.address.fileName(QUrl::FullyDecoded).toStdString());
    const auto file = download_->file.place(name);
    if (!file) return failDownload(UpdateFailure::notWritten);
    defaults_.setText(fetchedVersionKey, download_->offer.version);
    const UpdateMessage message = readyMessage(download_->offer, *file);
    download_.reset();
    offer_.reset();
    becomeIdle();
    prompt_.show(message);
}

// The offer is a copy: the download that it may belong to goes before it is told of.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void FeedUpdater::failDownload(Occasion occasion, UpdateOffer offer, UpdateFailure failure) {
    fetch_.reset();
    download_.reset();
    becomeIdle();
    // The schedule's own is offered as if nothing had been tried: asked for, it tells what goes
    // wrong.
    prompt_.show(occasion == Occasion::asked ? downloadFailedMessage(offer, failure)
                                             : foundMessage(offer, shownVersion_));
}

void FeedUpdater::failDownload(UpdateFailure failure) {
    failDownload(download_->occasion, download_->offer, failure);
}

void FeedUpdater::tell(Occasion occasion, const UpdateMessage& message) {
    becomeIdle();
    if (occasion == Occasion::asked) prompt_.show(message);
}

void FeedUpdater::becomeIdle() {
    isBusy_ = false;
    plan();
    canCheckChanges_.tell();
}

void FeedUpdater::plan() {
    if (planned_) runtime_.executor.cancel(*std::exchange(planned_, std::nullopt));
    if (!isStarted_ || !automaticallyChecks() || !canCheckForUpdates()) return;
    const Instant now = runtime_.executor.now();
    planned_ = runtime_.executor.at(nextCheck(defaults_.date(lastCheckKey), now), [this] {
        planned_.reset();
        check(Occasion::scheduled);
    });
}

}  // namespace morvane
