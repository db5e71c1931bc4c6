#include "stage.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QTest>

namespace morvane {
namespace {

QStringList heard;

// By what is on view: what a repeater makes is nobody's child but the scene's.
QQuickItem* below(QQuickItem& above, const QString& objectName) {
    for (QQuickItem* child : above.childItems()) {
        if (child->objectName() == objectName) return child;
        if (QQuickItem* found = below(*child, objectName)) return found;
    }
    return nullptr;
}

void hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    heard.append(QStringLiteral("%1: %2").arg(QString::fromUtf8(context.category), text));
}

}  // namespace

Stage::Stage() {
    heard.clear();
    qInstallMessageHandler(hear);
    view_.engine()->addImportPath(QStringLiteral("qrc:/"));
    view_.resize(600, 400);
    view_.setResizeMode(QQuickView::SizeViewToRootObject);
}

Stage::~Stage() {
    qInstallMessageHandler(nullptr);
}

QQuickItem* Stage::show(const QString& body) {
    QQmlComponent component(view_.engine());
    component.setData(
        "import QtQuick\nimport Morvane.Theme\nimport Morvane.Components\n" + body.toUtf8(),
        QUrl(QStringLiteral("qrc:/stage.qml")));
    heard += component.isError() ? QStringList(component.errorString()) : QStringList();
    return take(component.create());
}

QQuickItem* Stage::showFile(const QString& path) {
    QQmlComponent component(view_.engine(), QUrl::fromLocalFile(path));
    heard += component.isError() ? QStringList(component.errorString()) : QStringList();
    return take(component.create());
}

QQuickItem* Stage::take(QObject* object) {
    auto* const item = qobject_cast<QQuickItem*>(object);
    if (item == nullptr) return nullptr;
    view_.setContent({}, nullptr, item);
    view_.show();
    view_.requestActivate();
    if (!QTest::qWaitForWindowActive(&view_)) heard.append(QStringLiteral("window never active"));
    QCoreApplication::processEvents();
    return item;
}

QStringList Stage::warnings() const {
    return heard;
}

QQuickItem* Stage::item(const QString& objectName) const {
    return below(*view_.contentItem(), objectName);
}

void Stage::key(int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&view_, static_cast<Qt::Key>(key), modifiers);
}

void Stage::click(const QQuickItem& item) {
    const QPointF middle = item.mapToScene({item.width() / 2, item.height() / 2});
    QTest::mouseClick(&view_, Qt::LeftButton, Qt::NoModifier, middle.toPoint());
}

QString Stage::focused() const {
    const QQuickItem* const item = view_.activeFocusItem();
    return item == nullptr ? QString() : item->objectName();
}

QImage Stage::picture() {
    return view_.grabWindow();
}

}  // namespace morvane
