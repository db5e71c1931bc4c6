#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/defaults.h"

namespace morvane {

// Defaults that live in memory and remember every write in order. Main thread.
class MemoryDefaults : public Defaults {
public:
    struct Data {
        std::string bytes;
        bool operator==(const Data&) const = default;
    };
    using Value = std::variant<bool, std::string, Instant, Data, std::vector<std::string>>;
    // One write; no value stands for a removal.
    struct Write {
        std::string key;
        std::optional<Value> value;
        bool operator==(const Write&) const = default;
    };

    MemoryDefaults() = default;
    explicit MemoryDefaults(std::map<std::string, Value> stored) : stored(std::move(stored)) {}

    // What is stored now. A test may put values here before the store reads them.
    std::map<std::string, Value> stored;
    // Every write since this was made, or since the test cleared it.
    std::vector<Write> writes;
    int flushes = 0;

    [[nodiscard]] std::optional<bool> boolean(const std::string& key) const override {
        return held<bool>(key);
    }
    [[nodiscard]] std::optional<std::string> text(const std::string& key) const override {
        return held<std::string>(key);
    }
    [[nodiscard]] std::optional<Instant> date(const std::string& key) const override {
        return held<Instant>(key);
    }
    [[nodiscard]] std::optional<std::string> data(const std::string& key) const override {
        const std::optional<Data> data = held<Data>(key);
        return data ? std::optional(data->bytes) : std::nullopt;
    }
    [[nodiscard]] std::optional<std::vector<std::string>> texts(
        const std::string& key) const override {
        return held<std::vector<std::string>>(key);
    }

    void setBoolean(const std::string& key, bool value) override { write(key, value); }
    void setText(const std::string& key, const std::string& value) override { write(key, value); }
    void setDate(const std::string& key, Instant value) override { write(key, value); }
    void setData(const std::string& key, const std::string& bytes) override {
        write(key, Data{bytes});
    }
    void setTexts(const std::string& key, const std::vector<std::string>& values) override {
        write(key, values);
    }
    void remove(const std::string& key) override {
        stored.erase(key);
        writes.push_back({key, std::nullopt});
    }
    void flush() override { ++flushes; }

    // The keys of `writes`, in order.
    [[nodiscard]] std::vector<std::string> writtenKeys() const {
        std::vector<std::string> keys;
        for (const Write& write : writes) keys.push_back(write.key);
        return keys;
    }

private:
    template <class T>
    [[nodiscard]] std::optional<T> held(const std::string& key) const {
        const auto found = stored.find(key);
        if (found == stored.end()) return std::nullopt;
        const T* value = std::get_if<T>(&found->second);
        return value ? std::optional(*value) : std::nullopt;
    }
    void write(const std::string& key, Value value) {
        stored.insert_or_assign(key, value);
        writes.push_back({key, std::move(value)});
    }
};

}  // namespace morvane
