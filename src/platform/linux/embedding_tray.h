#pragma once

#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QObject>
#include <cstdint>

struct xcb_connection_t;

namespace morvane::linuxdesktop {

// Whether a tray of the older kind is there: an X client that owns the selection of the tray
// (System Tray Protocol Specification 0.4). Followed by what the X server tells; on a display of
// another kind there is none.
class EmbeddingTray : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    EmbeddingTray();
    ~EmbeddingTray() override;

    [[nodiscard]] bool isPresent() const { return owner_ != 0; }

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

signals:
    void changed();

private:
    [[nodiscard]] std::uint32_t atom(const char* name) const;
    void look();

    xcb_connection_t* connection_ = nullptr;
    std::uint32_t selection_ = 0;
    std::uint32_t manager_ = 0;
    std::uint32_t owner_ = 0;
};

}  // namespace morvane::linuxdesktop
