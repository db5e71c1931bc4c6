#include <memory>
#include <string>
#include <unicode/calendar.h>
#include <unicode/datefmt.h>
#include <unicode/dtptngen.h>
#include <unicode/smpdtfmt.h>

#include "model/words.h"

namespace morvane {

namespace {

icu::Locale localeOf(const Region& region) {
    return icu::Locale(region.locale.c_str());
}

std::unique_ptr<icu::TimeZone> zoneOf(const Region& region) {
    std::unique_ptr<icu::TimeZone> zone(
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(region.timeZone)));
    if (*zone == icu::TimeZone::getUnknown()) {
        zone.reset(icu::TimeZone::getGMT()->clone());
    }
    return zone;
}

UDate milliseconds(Instant instant) {
    const auto since = std::chrono::floor<std::chrono::milliseconds>(instant.time_since_epoch());
    return static_cast<UDate>(since.count());
}

// Days since 1970-01-01 of the calendar day that `instant` falls on in `zone`.
std::int64_t dayNumber(Instant instant, const icu::TimeZone& zone) {
    int32_t raw = 0;
    int32_t daylight = 0;
    UErrorCode status = U_ZERO_ERROR;
    const UDate moment = milliseconds(instant);
    zone.getOffset(moment, 0, raw, daylight, status);
    const auto local =
        std::chrono::milliseconds(static_cast<std::int64_t>(moment) + raw + daylight);
    return std::chrono::floor<std::chrono::days>(local).count();
}

std::int32_t yearOf(Instant instant, const Region& region) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Calendar> calendar(
        icu::Calendar::createInstance(zoneOf(region).release(), localeOf(region), status));
    if (U_FAILURE(status)) return 0;
    calendar->setTime(milliseconds(instant), status);
    return calendar->get(UCAL_YEAR, status);
}

std::string formatted(icu::DateFormat& format, Instant instant, const Region& region) {
    format.adoptTimeZone(zoneOf(region).release());
    icu::UnicodeString text;
    format.format(milliseconds(instant), text);
    std::string utf8;
    text.toUTF8String(utf8);
    return utf8;
}

// Day, month and so on in the order the locale puts them.
std::string withSkeleton(const char* skeleton, Instant instant, const Region& region) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createInstanceForSkeleton(skeleton, localeOf(region), status));
    if (U_FAILURE(status) || !format) return {};
    return formatted(*format, instant, region);
}

std::string shortTime(Instant instant, const Region& region) {
    std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, localeOf(region)));
    return format ? formatted(*format, instant, region) : std::string{};
}

}  // namespace

std::string relativeDayText(std::optional<Instant> date, Instant now, const Region& region) {
    if (!date) return "Never opened";
    const auto zone = zoneOf(region);
    const std::int64_t days = dayNumber(now, *zone) - dayNumber(*date, *zone);
    if (days < 1) return "Today";
    if (days == 1) return "Yesterday";
    if (days < 7) return std::to_string(days) + " days ago";
    if (days < 14) return "Last week";
    if (days < 30) return std::to_string(days / 7) + " weeks ago";
    if (days < 60) return std::to_string(days / 30) + " month ago";
    if (days < 365) return std::to_string(days / 30) + " months ago";
    if (days < 730) return std::to_string(days / 365) + " year ago";
    return std::to_string(days / 365) + " years ago";
}

std::string sweepDateText(Instant date, Instant now, const Region& region) {
    const auto zone = zoneOf(region);
    const std::int64_t days = dayNumber(now, *zone) - dayNumber(date, *zone);
    if (days == 0) return "Today, " + shortTime(date, region);
    if (days == 1) return "Yesterday, " + shortTime(date, region);
    if (yearOf(date, region) == yearOf(now, region)) return withSkeleton("dMMMM", date, region);
    return withSkeleton("dMMMMy", date, region);
}

std::string longDateText(Instant date, const Region& region) {
    std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createDateInstance(icu::DateFormat::kLong, localeOf(region)));
    return format ? formatted(*format, date, region) : std::string{};
}

}  // namespace morvane
