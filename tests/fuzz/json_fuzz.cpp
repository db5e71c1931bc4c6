#include <cstdint>
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "platform/formats/json.h"
#include "platform/formats/json_fields.h"

// Every value of the tree is asked for as each type, and is at most one of them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace morvane;
    const auto document = readJSON({reinterpret_cast<const char*>(data), size});
    if (!document) return 0;
    std::vector<const nlohmann::json*> left{&document->root()};
    while (!left.empty()) {
        const nlohmann::json& value = *left.back();
        left.pop_back();
        const int types = (asText(value) ? 1 : 0) + (asBoolean(value) ? 1 : 0) +
                          (asNumber(value) ? 1 : 0) + (asTexts(value) ? 1 : 0);
        if (types > 1 || (asInteger(value) && !asNumber(value))) std::abort();
        if (value.is_object() && find(value, "id") && !value.contains("id")) std::abort();
        for (const nlohmann::json& child : value) {
            if (value.is_structured()) left.push_back(&child);
        }
    }
    return 0;
}
