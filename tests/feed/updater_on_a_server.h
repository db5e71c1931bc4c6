#pragma once

#include <QCoreApplication>
#include <QTemporaryDir>
#include <array>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <sodium.h>

#include "feed/tls_server.h"
#include "services/feed/feed_updater.h"
#include "support/memory_defaults.h"
#include "tasks/event_loop.h"
#include "tasks/pool.h"

namespace morvane {

constexpr Instant noon{std::chrono::seconds(1795262400)};

// A loop whose clock the test moves, and whose work runs in the toolkit's loop.
class ServedLoop : public EventLoop {
public:
    ServedLoop() : EventLoop(noon) {}
    void post(std::function<void()> work) override {
        EventLoop::post(std::move(work));
        QMetaObject::invokeMethod(&served_, [this] { runReady(); }, Qt::QueuedConnection);
    }
    // Lets everything happen until `done` says so.
    static void serveUntil(const std::function<bool()>& done) {
        while (!done()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

private:
    QObject served_;
};

class RecordingPrompt : public UpdatePrompt {
public:
    void show(const UpdateMessage& message) override { shown.push_back(message); }
    [[nodiscard]] std::vector<UpdateMessage::Kind> kinds() const {
        std::vector<UpdateMessage::Kind> list;
        for (const UpdateMessage& message : shown) list.push_back(message.kind);
        return list;
    }

    std::vector<UpdateMessage> shown;
};

// Who signs: keys from a fixed seed.
struct Signer {
    Signer() {
        std::array<unsigned char, crypto_sign_SEEDBYTES> seed{};
        EXPECT_GE(sodium_init(), 0);
        crypto_sign_seed_keypair(key.data(), secret.data(), seed.data());
    }
    template <std::size_t size>
    static std::string base64(const std::array<unsigned char, size>& bytes) {
        std::string text(sodium_base64_encoded_len(size, sodium_base64_VARIANT_ORIGINAL), '\0');
        sodium_bin2base64(text.data(), text.size(), bytes.data(), size,
                          sodium_base64_VARIANT_ORIGINAL);
        text.pop_back();  // the NUL
        return text;
    }
    [[nodiscard]] std::string sign(const std::string& bytes) const {
        Signature signature{};
        const std::vector<unsigned char> message(bytes.begin(), bytes.end());
        crypto_sign_detached(signature.data(), nullptr, message.data(), message.size(),
                             secret.data());
        return base64(signature);
    }

    PublicKey key{};
    std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secret{};
};

// An updater of build 100 ("1.0") that asks a server of its own. Files go to `downloads`.
class UpdaterOnAServer : public testing::Test {
protected:
    using Kind = UpdateMessage::Kind;

    UpdaterOnAServer() { make(); }

    void make() {
        updater.reset();
        updater.emplace(Runtime{loop, pool}, defaults, prompt, bundle(),
                        FeedUpdater::Options{.downloads = downloads, .security = server.trust()});
    }
    [[nodiscard]] BundleInfo bundle() const {
        return {.shortVersion = "1.0",
                .version = "100",
                .updateFeed = server.address("/feed.xml"),
                .updateKey = Signer::base64(signer.key)};
    }
    [[nodiscard]] std::string feed(const std::string& version, const std::string& signature,
                                   std::size_t length,
                                   const std::string& path = "/Morvane.dmg") const {
        return "<rss version=\"2.0\" "
               "xmlns:a=\"urn:a\"><channel><item><description>New</description>"
               "<enclosure url=\"" +
               server.address(path) + "\" length=\"" + std::to_string(length) + "\" a:version=\"" +
               version + "\" a:shortVersionString=\"2.0\" a:edSignature=\"" + signature +
               "\"/></item></channel></rss>";
    }
    // The server offers `bytes` as build 200, signed.
    void offer(const std::string& bytes) {
        server.answers["/feed.xml"] = content(feed("200", signer.sign(bytes), bytes.size()));
        server.answers["/Morvane.dmg"] = content(bytes);
    }
    // Runs until nothing is under way.
    void settle() {
        ServedLoop::serveUntil([this] { return updater->canCheckForUpdates(); });
    }
    UpdateMessage check() {
        updater->checkForUpdates();
        settle();
        return prompt.shown.empty() ? UpdateMessage{} : prompt.shown.back();
    }
    UpdateMessage download() {
        updater->download();
        settle();
        return prompt.shown.back();
    }
    // Names and contents of what lies in the folder for downloads, hidden files too.
    [[nodiscard]] std::map<std::string, std::string> kept() const {
        std::map<std::string, std::string> files;
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator(downloads, error)) {
            std::ifstream file(entry.path(), std::ios::binary);
            files[entry.path().filename()] = {std::istreambuf_iterator<char>(file), {}};
        }
        return files;
    }

    QTemporaryDir folder;
    std::filesystem::path downloads = folder.filePath("Downloads").toStdString();
    Signer signer;
    TlsServer server;
    ServedLoop loop;
    Pool pool;
    MemoryDefaults defaults;
    RecordingPrompt prompt;
    std::optional<FeedUpdater> updater;
};

}  // namespace morvane
