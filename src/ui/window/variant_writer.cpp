#include "ui/window/variant_writer.h"

#include <utility>

namespace morvane {

void VariantWriter::open(bool isList) {
    open_.push_back({.name = std::exchange(name_, {}), .isList = isList, .record = {}, .list = {}});
}

void VariantWriter::close() {
    Open closed = std::move(open_.back());
    open_.pop_back();
    name_ = closed.name;
    add(closed.isList ? QVariant(closed.list) : QVariant(closed.record));
}

void VariantWriter::add(QVariant value) {
    if (open_.empty()) {
        whole_ = std::move(value);
    } else if (open_.back().isList) {
        open_.back().list.append(std::move(value));
    } else {
        open_.back().record.insert(name_, value);
    }
}

void VariantWriter::beginRecord() {
    open(false);
}
void VariantWriter::endRecord() {
    close();
}
void VariantWriter::beginList() {
    open(true);
}
void VariantWriter::endList() {
    close();
}
void VariantWriter::name(std::string_view name) {
    name_ = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}
void VariantWriter::null() {
    add(QVariant::fromValue(nullptr));
}
void VariantWriter::boolean(bool value) {
    add(value);
}
void VariantWriter::integer(std::int64_t value) {
    add(static_cast<qlonglong>(value));
}
void VariantWriter::number(double value) {
    add(value);
}
void VariantWriter::text(std::string_view value) {
    add(QString::fromUtf8(value.data(), static_cast<qsizetype>(value.size())));
}

}  // namespace morvane
