#pragma once

#include <QVariant>
#include <vector>

#include "ui/screens/fields.h"

namespace morvane {

// Builds what a screen tells as a value that QML reads: records as maps, lists as lists, what is
// absent as null.
class VariantWriter final : public screens::FieldWriter {
public:
    void beginRecord() override;
    void endRecord() override;
    void beginList() override;
    void endList() override;
    void name(std::string_view name) override;
    void null() override;
    void boolean(bool value) override;
    void integer(std::int64_t value) override;
    void number(double value) override;
    void text(std::string_view value) override;

    // The whole, once it was told.
    [[nodiscard]] QVariant take() { return std::move(whole_); }

private:
    struct Open {
        QString name;  // of the value itself in what holds it
        bool isList = false;
        QVariantMap record;
        QVariantList list;
    };

    void open(bool isList);
    void close();
    void add(QVariant value);

    std::vector<Open> open_;
    QString name_;
    QVariant whole_;
};

// A value of a screen as QML reads it.
template <class T>
[[nodiscard]] QVariant toVariant(const T& value) {
    VariantWriter writer;
    screens::writeValue(value, writer);
    return writer.take();
}

}  // namespace morvane
