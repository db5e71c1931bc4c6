#include "ui/window/review_object.h"

#include <utility>

namespace morvane {

QVariantMap ReviewObject::read() {
    screens::ReviewContent content = screen_.content();
    list_.setGroups(std::exchange(content.groups, {}));
    return toVariant(content).toMap();
}

}  // namespace morvane
