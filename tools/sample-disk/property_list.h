#pragma once

#include <cstdint>
#include <plist/plist.h>
#include <string>
#include <string_view>

#include "moment.h"

namespace morvane::sample {

/// A property list under construction: a dictionary or an array that owns what was put into it.
/// Each kind of value has its own word, so that a text never slips in as a truth value.
class PropertyList {
public:
    static PropertyList dictionary();
    static PropertyList array();

    PropertyList(PropertyList&& other) noexcept;
    PropertyList& operator=(PropertyList&&) = delete;
    PropertyList(const PropertyList&) = delete;
    PropertyList& operator=(const PropertyList&) = delete;
    ~PropertyList();

    PropertyList& text(std::string_view key, std::string_view value);
    PropertyList& number(std::string_view key, std::uint64_t value);
    PropertyList& flag(std::string_view key, bool value);
    PropertyList& date(std::string_view key, Moment value);
    PropertyList& data(std::string_view key, std::string_view bytes);
    PropertyList& child(std::string_view key, PropertyList value);

    PropertyList& append(std::string_view value);
    PropertyList& append(PropertyList value);

    [[nodiscard]] std::string xml() const;
    [[nodiscard]] std::string binary() const;

private:
    explicit PropertyList(plist_t node) : node_(node) {}
    plist_t release();
    PropertyList& put(std::string_view key, plist_t value);

    plist_t node_;
};

}  // namespace morvane::sample
