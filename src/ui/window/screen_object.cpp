#include "ui/window/screen_object.h"

#include <utility>

namespace morvane {

ScreenObject::ScreenObject(screens::Screen& screen, QObject* parent)
    : QQmlPropertyMap(this, parent), screen_(screen) {}

QVariantMap ScreenObject::read() {
    VariantWriter writer;
    screen_.write(writer);
    return writer.take().toMap();
}

void ScreenObject::refresh() {
    const QVariantMap told = read();
    for (auto each = told.cbegin(); each != told.cend(); ++each) {
        if (!contains(each.key()) || value(each.key()) != each.value()) {
            insert(each.key(), each.value());
        }
    }
}

bool ScreenObject::press(const QString& control, const QString& row, const QVariant& value) {
    screens::PressRequest request{.control = control.toStdString()};
    if (!row.isNull()) request.row = row.toStdString();
    switch (value.typeId()) {
        case QMetaType::Bool:
            request.value = value.toBool();
            break;
        case QMetaType::Int:
        case QMetaType::Double:
            request.value = static_cast<std::int64_t>(value.toLongLong());
            break;
        case QMetaType::QString:
            request.value = value.toString().toStdString();
            break;
        default:
            break;
    }
    auto act = screen_.press(request);
    if (!std::holds_alternative<screens::Screen::Act>(act)) {
        emit refused();
        return false;
    }
    std::get<screens::Screen::Act>(act)();
    emit pressed();
    return true;
}

QVariant ScreenObject::updateValue(const QString& key, const QVariant& /*input*/) {
    return value(key);
}

}  // namespace morvane
