#include "ui/components/flow_layout.h"

#include <limits>

#include "ui/components/flow_plan.h"

namespace morvane {

void FlowLayout::setSpacing(double spacing) {
    if (spacing == spacing_) return;
    spacing_ = spacing;
    layOut();
    emit spacingChanged();
}

void FlowLayout::setLineSpacing(double spacing) {
    if (spacing == lineSpacing_) return;
    lineSpacing_ = spacing;
    layOut();
    emit lineSpacingChanged();
}

void FlowLayout::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change == ItemChildAddedChange) {
        connect(data.item, &QQuickItem::widthChanged, this, [this] { polish(); });
        connect(data.item, &QQuickItem::heightChanged, this, [this] { polish(); });
        connect(data.item, &QQuickItem::visibleChanged, this, [this] { polish(); });
        polish();
    } else if (change == ItemChildRemovedChange) {
        disconnect(data.item, nullptr, this, nullptr);
        polish();
    }
}

void FlowLayout::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    if (now.width() != before.width()) layOut();
}

void FlowLayout::componentComplete() {
    QQuickItem::componentComplete();
    layOut();
}

void FlowLayout::updatePolish() {
    layOut();
}

std::vector<QQuickItem*> FlowLayout::items() const {
    std::vector<QQuickItem*> items;
    for (QQuickItem* child : childItems()) {
        // A repeater stands among the items it makes and takes no place itself.
        if (child->isVisible() && !child->inherits("QQuickRepeater")) items.push_back(child);
    }
    return items;
}

void FlowLayout::layOut() {
    if (!isComponentComplete()) return;
    const std::vector<QQuickItem*> shown = items();
    std::vector<FlowSize> sizes;
    sizes.reserve(shown.size());
    for (const QQuickItem* item : shown) sizes.push_back({item->width(), item->height()});

    const double unbounded = std::numeric_limits<double>::infinity();
    setImplicitWidth(flowPlan(sizes, unbounded, spacing_, lineSpacing_).size.width);
    const FlowPlan plan = flowPlan(sizes, width(), spacing_, lineSpacing_);
    for (std::size_t index = 0; index < shown.size(); ++index) {
        shown[index]->setPosition({plan.places[index].x, plan.places[index].y});
    }
    setImplicitHeight(plan.size.height);
}

}  // namespace morvane
