#include <QQmlComponent>

#include "ui/figures/figure_screens.h"

namespace morvane {

// The controls in states that no screen has at hand, over the whole window.
void FigureScreens::showGallery() {
    QQmlComponent component(&engine(), QUrl::fromLocalFile(QStringLiteral(MORVANE_GALLERY)));
    auto* const gallery = qobject_cast<QQuickItem*>(component.create());
    ASSERT_NE(gallery, nullptr) << qPrintable(component.errorString());
    gallery->setParent(window().contentItem());
    gallery->setParentItem(window().contentItem());
    settle();
}

FigureScreens::States FigureScreens::componentStates() {
    const auto focusing = [this](const char* control) {
        return [this, control] {
            showGallery();
            focus(QString::fromLatin1(control));
        };
    };
    const auto hovering = [this](const char* control) {
        return [this, control] {
            showGallery();
            hover(QString::fromLatin1(control));
        };
    };
    const auto holding = [this](const char* control) {
        return [this, control] {
            showGallery();
            hold(QString::fromLatin1(control));
        };
    };
    return {{QStringLiteral("palette"), [] {}},
            {QStringLiteral("components.rest"), [this] { showGallery(); }},
            {QStringLiteral("components.boxFocus"), focusing("boxOff")},
            {QStringLiteral("components.capsuleFocus"), focusing("capsule")},
            {QStringLiteral("components.linkFocus"), focusing("link")},
            {QStringLiteral("components.toggleFocus"), focusing("toggleOn")},
            {QStringLiteral("components.boxHover"), hovering("boxOff")},
            {QStringLiteral("components.capsuleHover"), hovering("capsule")},
            {QStringLiteral("components.plainHover"), hovering("plain")},
            {QStringLiteral("components.linkHover"), hovering("link")},
            {QStringLiteral("components.capsuleHeld"), holding("capsule")},
            {QStringLiteral("components.toggleHeld"), holding("toggleOn")},
            {QStringLiteral("components.disabledHover"), hovering("capsuleDisabled")},
            {QStringLiteral("components.reducedMotion"), [this] {
                 theme().setReducedMotion(true);
                 showGallery();
             }}};
}

}  // namespace morvane
