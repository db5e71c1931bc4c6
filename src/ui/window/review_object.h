#pragma once

#include <QQmlEngine>

#include "ui/review/review_screen.h"
#include "ui/window/review_list.h"
#include "ui/window/screen_object.h"

namespace morvane {

// The review for QML: its head and foot as properties, its groups as one flat list.
class ReviewObject final : public morvane::ScreenObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the program")
    Q_PROPERTY(morvane::ReviewList* list READ list CONSTANT FINAL)

public:
    explicit ReviewObject(screens::ReviewScreen& screen, QObject* parent = nullptr)
        : ScreenObject(this, screen, parent), screen_(screen) {}

    [[nodiscard]] ReviewList* list() { return &list_; }

protected:
    [[nodiscard]] QVariantMap read() override;

private:
    screens::ReviewScreen& screen_;
    ReviewList list_{nullptr};
};

}  // namespace morvane
