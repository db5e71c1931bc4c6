#include "platform/linux/embedding_tray.h"

#include <QtGui/QGuiApplication>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

namespace morvane::linuxdesktop {

namespace {

struct Freeing {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, Freeing>;

constexpr std::uint8_t sentByAnother = 0x80;

}  // namespace

EmbeddingTray::EmbeddingTray() {
    const auto* display = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (display == nullptr || display->connection() == nullptr) return;
    connection_ = display->connection();
    // The display's first screen is the only one any X server has had for long.
    selection_ = atom("_NET_SYSTEM_TRAY_S0");
    manager_ = atom("MANAGER");
    qGuiApp->installNativeEventFilter(this);
    look();
}

EmbeddingTray::~EmbeddingTray() {
    if (qGuiApp != nullptr) qGuiApp->removeNativeEventFilter(this);
}

std::uint32_t EmbeddingTray::atom(const char* name) const {
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    const auto cookie = xcb_intern_atom(connection_, 0, length, name);
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, cookie, nullptr));
    return reply ? reply->atom : 0;
}

void EmbeddingTray::look() {
    const auto cookie = xcb_get_selection_owner(connection_, selection_);
    const Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection_, cookie, nullptr));
    const std::uint32_t owner = reply ? reply->owner : 0;
    if (owner == owner_) return;
    const bool wasPresent = isPresent();
    owner_ = owner;
    if (owner != 0) {
        // So that the server tells when it goes. The toolkit asks for the same of this window.
        const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection_, owner, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(connection_);
    }
    if (isPresent() != wasPresent) emit changed();
}

bool EmbeddingTray::nativeEventFilter(const QByteArray&, void* message, qintptr*) {
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    switch (event->response_type & ~sentByAnother) {
        case XCB_CLIENT_MESSAGE: {
            const auto* sent = static_cast<const xcb_client_message_event_t*>(message);
            if (sent->type == manager_ && sent->data.data32[1] == selection_) look();
            break;
        }
        case XCB_DESTROY_NOTIFY: {
            const auto* gone = static_cast<const xcb_destroy_notify_event_t*>(message);
            if (gone->window == owner_) look();
            break;
        }
        default:
            break;
    }
    return false;
}

}  // namespace morvane::linuxdesktop
