#include "ui/dialogs/link_note.h"

#include <utility>

#include "ui/screens/shapes.h"
#include "ui/window/variant_writer.h"

namespace morvane {

void LinkNote::show(const std::string& link) {
    link_ = QString::fromStdString(link);
    emit linkChanged();
    if (!std::exchange(isOpen_, true)) emit isOpenChanged();
    emit shown();
}

QVariantMap LinkNote::close() const {
    return toVariant(screens::Button{
                         .label = "OK", .kind = screens::ButtonKind::prominent, .key = "Return"})
        .toMap();
}

void LinkNote::dismiss() {
    if (std::exchange(isOpen_, false)) emit isOpenChanged();
}

}  // namespace morvane
