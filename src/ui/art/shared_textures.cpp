#include "ui/art/shared_textures.h"

#include <QCache>
#include <QQuickWindow>
#include <cstddef>
#include <map>
#include <mutex>
#include <utility>

namespace morvane {
namespace {

constexpr qsizetype keptBytes = 16 << 20;  // of pictures nobody shows at the moment
constexpr std::size_t tidyAt = 512;        // textures known, before the freed ones are forgotten

// Each window may have a thread of its own that asks.
class Store {
public:
    std::shared_ptr<QSGTexture> texture(QQuickWindow& window, const QString& key,
                                        const std::function<QImage()>& paint) {
        const std::lock_guard lock(mutex_);
        std::weak_ptr<QSGTexture>& known = textures_[{&window, key}];
        if (std::shared_ptr<QSGTexture> texture = known.lock()) return texture;
        std::shared_ptr<QSGTexture> texture(window.createTextureFromImage(picture(key, paint)));
        known = texture;
        if (textures_.size() > tidyAt)
            std::erase_if(textures_, [](const auto& entry) { return entry.second.expired(); });
        return texture;
    }

private:
    QImage picture(const QString& key, const std::function<QImage()>& paint) {
        if (const QImage* kept = pictures_.object(key)) return *kept;
        const QImage painted = paint();
        pictures_.insert(key, std::make_unique<QImage>(painted).release(),
                         std::max<qsizetype>(painted.sizeInBytes(), 1));
        return painted;
    }

    std::mutex mutex_;
    std::map<std::pair<const QQuickWindow*, QString>, std::weak_ptr<QSGTexture>> textures_;
    QCache<QString, QImage> pictures_{keptBytes};
};

}  // namespace

std::shared_ptr<QSGTexture> sharedTexture(QQuickWindow& window, const QString& key,
                                          const std::function<QImage()>& paint) {
    // Never torn down: where a library ends the process, a window's thread may still draw.
    static Store& store = *std::make_unique<Store>().release();
    return store.texture(window, key, paint);
}

}  // namespace morvane
