#include <chrono>
#include <cstdint>
#include <cstdlib>

#include "platform/formats/iso8601.h"
#include "platform/formats/uuid.h"

// An instant that was read is shown as a text that stands for the same millisecond.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace morvane;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    (void)isUUID(text);
    const auto instant = parseInstant(text);
    if (!instant) return 0;
    const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(*instant);
    if (parseInstant(formatInstant(*instant)) != Instant(milliseconds)) std::abort();
    return 0;
}
