#include "moment.h"

#include <chrono>

namespace morvane::sample {
namespace {

/// Takes exactly `digits` digits off the front of `text`.
std::optional<int> takeNumber(std::string_view& text, std::size_t digits) {
    if (text.size() < digits) {
        return std::nullopt;
    }
    int value = 0;
    for (const char letter : text.substr(0, digits)) {
        if (letter < '0' || letter > '9') {
            return std::nullopt;
        }
        value = value * 10 + (letter - '0');
    }
    text.remove_prefix(digits);
    return value;
}

bool takeLetter(std::string_view& text, char letter) {
    if (text.empty() || text.front() != letter) {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

void passFraction(std::string_view& text) {
    if (text.size() < 2 || text.front() != '.' || text[1] < '0' || text[1] > '9') {
        return;
    }
    text.remove_prefix(1);
    while (!text.empty() && text.front() >= '0' && text.front() <= '9') {
        text.remove_prefix(1);
    }
}

/// Seconds east of UTC, from "Z" or "+hh:mm" or "-hh:mm" and nothing behind it.
std::optional<Moment> takeOffset(std::string_view text) {
    if (text == "Z") {
        return 0;
    }
    const bool west = !text.empty() && text.front() == '-';
    if (!west && !(!text.empty() && text.front() == '+')) {
        return std::nullopt;
    }
    text.remove_prefix(1);
    const auto hours = takeNumber(text, 2);
    if (!hours || !takeLetter(text, ':')) {
        return std::nullopt;
    }
    const auto minutes = takeNumber(text, 2);
    if (!minutes || !text.empty() || *hours > 23 || *minutes > 59) {
        return std::nullopt;
    }
    const Moment east = Moment{*hours} * 3'600 + Moment{*minutes} * 60;
    return west ? -east : east;
}

std::string padded(unsigned value, std::size_t digits) {
    std::string text = std::to_string(value);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

std::string dateText(const std::chrono::year_month_day& day) {
    return padded(static_cast<unsigned>(static_cast<int>(day.year())), 4) + "-" +
           padded(static_cast<unsigned>(day.month()), 2) + "-" +
           padded(static_cast<unsigned>(day.day()), 2);
}

}  // namespace

Moment presentMoment() {
    const auto now = std::chrono::system_clock::now();
    return std::chrono::floor<std::chrono::seconds>(now).time_since_epoch().count();
}

std::optional<Moment> parseMoment(std::string_view text) {
    const auto year = takeNumber(text, 4);
    if (!year || !takeLetter(text, '-')) {
        return std::nullopt;
    }
    const auto month = takeNumber(text, 2);
    if (!month || !takeLetter(text, '-')) {
        return std::nullopt;
    }
    const auto day = takeNumber(text, 2);
    if (!day || !takeLetter(text, 'T')) {
        return std::nullopt;
    }
    const auto hour = takeNumber(text, 2);
    if (!hour || !takeLetter(text, ':')) {
        return std::nullopt;
    }
    const auto minute = takeNumber(text, 2);
    if (!minute || !takeLetter(text, ':')) {
        return std::nullopt;
    }
    const auto second = takeNumber(text, 2);
    if (!second || *hour > 23 || *minute > 59 || *second > 59) {
        return std::nullopt;
    }
    passFraction(text);
    const auto offset = takeOffset(text);
    const std::chrono::year_month_day date{std::chrono::year{*year},
                                           std::chrono::month{static_cast<unsigned>(*month)},
                                           std::chrono::day{static_cast<unsigned>(*day)}};
    if (!offset || !date.ok()) {
        return std::nullopt;
    }
    const Moment days = std::chrono::sys_days{date}.time_since_epoch().count();
    return days * secondsADay + Moment{*hour} * 3'600 + Moment{*minute} * 60 + *second - *offset;
}

std::string momentText(Moment moment) {
    const std::chrono::sys_seconds instant{std::chrono::seconds{moment}};
    const auto day = std::chrono::floor<std::chrono::days>(instant);
    const auto seconds = static_cast<unsigned>((instant - day).count());
    return dateText(day) + "T" + padded(seconds / 3'600, 2) + ":" + padded(seconds / 60 % 60, 2) +
           ":" + padded(seconds % 60, 2) + ".000Z";
}

std::string dayText(Moment moment) {
    const std::chrono::sys_seconds instant{std::chrono::seconds{moment}};
    return dateText(std::chrono::floor<std::chrono::days>(instant));
}

}  // namespace morvane::sample
