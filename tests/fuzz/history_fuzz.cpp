#include <cstdint>
#include <cstdlib>

#include "core/history_json.h"

// A history that was read can be stored, and is read again with the same entries. Dates are told
// in doubles, which may round the last digits away.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace morvane;
    const auto history = decodeHistory({reinterpret_cast<const char*>(data), size});
    if (!history) return 0;
    const auto json = encodeHistory(*history);
    if (!json) std::abort();
    const auto again = decodeHistory(*json);
    if (!again || again->size() != history->size()) std::abort();
    for (std::size_t index = 0; index < history->size(); ++index) {
        HistoryEntry one = (*history)[index];
        const HistoryEntry& two = (*again)[index];
        if (one.date - two.date > std::chrono::microseconds(2) ||
            two.date - one.date > std::chrono::microseconds(2)) {
            std::abort();
        }
        one.date = two.date;
        if (one != two) std::abort();
    }
    return 0;
}
