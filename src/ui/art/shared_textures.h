#pragma once

#include <QImage>
#include <QSGTexture>
#include <QString>
#include <functional>
#include <memory>

class QQuickWindow;

namespace morvane {

// A texture of the picture that `key` names, shared by everything that shows it in this window and
// freed with the last holder; `paint` is called only where no such picture is at hand. Called while
// a window's scene is brought up to date, on the thread that does it. Null when the window cannot
// make one.
[[nodiscard]] std::shared_ptr<QSGTexture> sharedTexture(QQuickWindow& window, const QString& key,
                                                        const std::function<QImage()>& paint);

}  // namespace morvane
