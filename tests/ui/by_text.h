#pragma once

#include <QQuickItem>
#include <QString>

namespace morvane {

// The first item on view below `above` that shows exactly this text, or null.
inline QQuickItem* itemWithText(const QQuickItem& above, const QString& text) {
    for (QQuickItem* child : above.childItems()) {
        if (!child->isVisible()) continue;
        if (child->property("text").toString() == text) return child;
        if (QQuickItem* found = itemWithText(*child, text)) return found;
    }
    return nullptr;
}

}  // namespace morvane
