#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <variant>
#include <vector>

#include "model/case_names.h"

namespace morvane::screens {

// One named field of a record.
template <class Record, class Value>
struct Field {
    std::string_view name;
    Value Record::* member;
};

template <class Record, class Value>
[[nodiscard]] constexpr Field<Record, Value> field(std::string_view name, Value Record::* member) {
    return {name, member};
}

// A record of a screen lists its fields, in the order in which they are told, by a static
// `fields()`.
template <class T>
concept ScreenRecord = requires { T::fields(); };

template <class T>
struct ListOf : std::false_type {};
template <class T>
struct ListOf<std::vector<T>> : std::true_type {
    using Element = T;
};
template <class T>
struct OptionalOf : std::false_type {};
template <class T>
struct OptionalOf<std::optional<T>> : std::true_type {
    using Value = T;
};
template <class T>
struct VariantOf : std::false_type {};
template <class... T>
struct VariantOf<std::variant<T...>> : std::true_type {};

// Calls `visit(name, value)` for each field of `record`, in order.
template <ScreenRecord Record, class Visit>
constexpr void forEachField(const Record& record, Visit visit) {
    std::apply([&](const auto&... each) { (visit(each.name, record.*(each.member)), ...); },
               Record::fields());
}

// Is told a value piece by piece, in the order in which it is read.
class FieldWriter {
public:
    FieldWriter() = default;
    FieldWriter(const FieldWriter&) = delete;
    FieldWriter& operator=(const FieldWriter&) = delete;
    virtual ~FieldWriter() = default;

    virtual void beginRecord() = 0;
    virtual void endRecord() = 0;
    virtual void beginList() = 0;
    virtual void endList() = 0;
    // The name of the value that comes next in the record.
    virtual void name(std::string_view name) = 0;
    virtual void null() = 0;
    virtual void boolean(bool value) = 0;
    virtual void integer(std::int64_t value) = 0;
    virtual void number(double value) = 0;
    virtual void text(std::string_view value) = 0;
};

template <class T>
void writeValue(const T& value, FieldWriter& writer) {
    if constexpr (ScreenRecord<T>) {
        writer.beginRecord();
        forEachField(value, [&](std::string_view name, const auto& each) {
            writer.name(name);
            writeValue(each, writer);
        });
        writer.endRecord();
    } else if constexpr (OptionalOf<T>::value) {
        if (value) {
            writeValue(*value, writer);
        } else {
            writer.null();
        }
    } else if constexpr (ListOf<T>::value) {
        writer.beginList();
        for (const auto& each : value) writeValue(each, writer);
        writer.endList();
    } else if constexpr (VariantOf<T>::value) {
        std::visit([&](const auto& each) { writeValue(each, writer); }, value);
    } else if constexpr (std::is_enum_v<T>) {
        writer.text(caseName(value));
    } else if constexpr (std::is_same_v<T, bool>) {
        writer.boolean(value);
    } else if constexpr (std::is_integral_v<T>) {
        writer.integer(static_cast<std::int64_t>(value));
    } else if constexpr (std::is_floating_point_v<T>) {
        writer.number(value);
    } else {
        writer.text(value);
    }
}

}  // namespace morvane::screens
