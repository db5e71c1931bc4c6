#pragma once

#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string_view>

#include "platform/formats/json_weight.h"

namespace morvane {

// A parsed JSON text, to be read into records by json_fields.h. The tree is never copied, compared
// or dumped: the library recurses there.
class JSONDocument {
public:
    explicit JSONDocument(std::unique_ptr<const nlohmann::json> root);
    JSONDocument(JSONDocument&&) noexcept;
    JSONDocument& operator=(JSONDocument&&) noexcept;
    ~JSONDocument();

    // Lives as long as this document.
    [[nodiscard]] const nlohmann::json& root() const { return *root_; }

private:
    std::unique_ptr<const nlohmann::json> root_;
};

// Parses one JSON text (RFC 8259) from outside, a byte order mark before it passed over. Nothing
// when it is malformed, is not UTF-8, holds a number beyond a double, has anything after its end,
// or is beyond JSONLimits. Where an object names a key twice, the later value
// counts. Any thread.
[[nodiscard]] std::optional<JSONDocument> readJSON(std::string_view text);

}  // namespace morvane
