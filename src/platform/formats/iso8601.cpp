#include "platform/formats/iso8601.h"

#include <chrono>
#include <cstdint>
#include <limits>

namespace morvane {

namespace {

// Takes texts off its front; once something does not fit, everything after fails too.
class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    // Exactly `count` digits whose value is at most `most`.
    int digits(std::size_t count, int most) {
        int value = 0;
        if (rest_.size() < count) return fail();
        for (std::size_t at = 0; at < count; ++at) {
            if (!isDigit(rest_[at])) return fail();
            value = value * 10 + (rest_[at] - '0');
        }
        rest_.remove_prefix(count);
        return value <= most ? value : fail();
    }

    void expect(char character) {
        if (!take(character)) failed_ = true;
    }

    bool take(char character) {
        if (!rest_.starts_with(character)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    // One digit or more, as a fraction in nanoseconds.
    std::int64_t fraction() {
        std::int64_t value = 0;
        std::int64_t unit = 100000000;
        if (rest_.empty() || !isDigit(rest_[0])) return fail();
        while (!rest_.empty() && isDigit(rest_[0])) {
            value += (rest_[0] - '0') * unit;
            unit /= 10;
            rest_.remove_prefix(1);
        }
        return value;
    }

    [[nodiscard]] bool succeeded() const { return !failed_ && rest_.empty(); }

private:
    static bool isDigit(char character) { return character >= '0' && character <= '9'; }
    int fail() {
        failed_ = true;
        return 0;
    }

    std::string_view rest_;
    bool failed_ = false;
};

std::string padded(std::int64_t value, std::size_t width) {
    std::string digits = std::to_string(value);
    if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
    return digits;
}

}  // namespace

std::optional<Instant> parseInstant(std::string_view text) {
    Reader reader(text);
    const int year = reader.digits(4, 9999);
    reader.expect('-');
    const int month = reader.digits(2, 12);
    reader.expect('-');
    const int day = reader.digits(2, 31);
    reader.expect('T');
    std::int64_t seconds = std::int64_t{3600} * reader.digits(2, 23);
    reader.expect(':');
    seconds += std::int64_t{60} * reader.digits(2, 59);
    reader.expect(':');
    seconds += reader.digits(2, 59);
    const std::int64_t nanoseconds = reader.take('.') ? reader.fraction() : 0;
    if (!reader.take('Z')) {
        const bool isEast = reader.take('+');
        if (!isEast) reader.expect('-');
        int offset = reader.digits(2, 23) * 3600;
        reader.expect(':');
        offset += reader.digits(2, 59) * 60;
        seconds += isEast ? -offset : offset;
    }
    const std::chrono::year_month_day date{std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    if (!reader.succeeded() || !date.ok()) return std::nullopt;
    seconds += std::int64_t{std::chrono::sys_days(date).time_since_epoch().count()} * 86400;
    constexpr std::int64_t secondsHeld = std::numeric_limits<std::int64_t>::max() / 1000000000;
    if (seconds >= secondsHeld || seconds < -secondsHeld) return std::nullopt;
    return Instant(std::chrono::nanoseconds(seconds * 1000000000 + nanoseconds));
}

std::string formatInstant(Instant instant) {
    const auto moment = std::chrono::floor<std::chrono::milliseconds>(instant);
    const auto midnight = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(midnight);
    const std::int64_t time = (moment - midnight).count();
    return padded(static_cast<int>(date.year()), 4) + "-" +
           padded(static_cast<unsigned>(date.month()), 2) + "-" +
           padded(static_cast<unsigned>(date.day()), 2) + "T" + padded(time / 3600000, 2) + ":" +
           padded(time / 60000 % 60, 2) + ":" + padded(time / 1000 % 60, 2) + "." +
           padded(time % 1000, 3) + "Z";
}

}  // namespace morvane
