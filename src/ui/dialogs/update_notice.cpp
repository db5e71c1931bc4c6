#include "ui/dialogs/update_notice.h"

#include <utility>

#include "ui/screens/shapes.h"
#include "ui/window/variant_writer.h"

namespace morvane {

void UpdateNotice::show(const UpdateMessage& message) {
    const bool goesOn = isOpen_ && isDownloading() && message.kind == message_.kind;
    message_ = message;
    emit messageChanged();
    if (!std::exchange(isOpen_, true)) emit isOpenChanged();
    if (!goesOn) emit shown();
}

bool UpdateNotice::isDownloading() const {
    return message_.kind == UpdateMessage::Kind::downloading;
}

QVariant UpdateNotice::action() const {
    if (message_.action.empty()) return QVariant::fromValue(nullptr);
    return toVariant(screens::Button{
        .label = message_.action, .kind = screens::ButtonKind::prominent, .key = "Return"});
}

QVariantMap UpdateNotice::close() const {
    const bool isAlone = message_.action.empty() && !isDownloading();
    screens::Button button{.label = message_.dismiss, .key = "Escape"};
    if (isAlone) {
        button.kind = screens::ButtonKind::prominent;
        button.key = "Return";
    }
    return toVariant(button).toMap();
}

void UpdateNotice::act() {
    if (!isOpen_) return;
    if (message_.kind == UpdateMessage::Kind::found) {
        if (presses_.download) presses_.download();
    } else if (message_.kind == UpdateMessage::Kind::ready) {
        if (message_.file && presses_.reveal) presses_.reveal(*message_.file);
        dismiss();
    }
}

void UpdateNotice::dismiss() {
    if (!std::exchange(isOpen_, false)) return;
    emit isOpenChanged();
    if (presses_.dismiss) presses_.dismiss();
}

}  // namespace morvane
