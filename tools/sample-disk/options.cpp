#include "options.h"

#include <charconv>
#include <string_view>
#include <utility>

namespace morvane::sample {
namespace {

template <typename Number>
std::optional<Number> wholeNumber(std::string_view text) {
    Number value{};
    const char* const end = text.data() + text.size();
    // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage): the end stands beside it
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc{} || rest != end || text.front() == '-') {
        return std::nullopt;
    }
    return value;
}

/// Bytes, or thousands, millions, thousand millions of them with K, M, G behind the number.
std::optional<std::int64_t> byteCount(std::string_view text) {
    std::int64_t unit = 1;
    if (!text.empty()) {
        switch (text.back()) {
            case 'K':
                unit = 1'000;
                break;
            case 'M':
                unit = 1'000'000;
                break;
            case 'G':
                unit = 1'000'000'000;
                break;
            default:
                break;
        }
    }
    if (unit != 1) {
        text.remove_suffix(1);
    }
    const auto value = wholeNumber<std::int64_t>(text);
    constexpr std::int64_t most = 1'000'000'000'000;
    if (!value || *value < 1 || *value > most / unit) {
        return std::nullopt;
    }
    return *value * unit;
}

/// Stores `value` for the option `name`; a line about what is wrong, or nothing.
std::optional<std::string> store(Options& options, std::string_view name, std::string_view value) {
    if (name == "--size") {
        options.size = byteCount(value);
        if (!options.size) {
            return "--size wants bytes such as 800000000, 200M or 8G, not \"" + std::string(value) +
                   "\"";
        }
    } else if (name == "--entries") {
        options.entries = wholeNumber<std::int64_t>(value);
        if (!options.entries || *options.entries < 1 || *options.entries > 100'000'000) {
            return "--entries wants a number from 1 to 100000000, not \"" + std::string(value) +
                   "\"";
        }
    } else if (name == "--seed") {
        const auto seed = wholeNumber<std::uint64_t>(value);
        if (!seed) {
            return "--seed wants a whole number, not \"" + std::string(value) + "\"";
        }
        options.seed = *seed;
    } else {
        options.now = parseMoment(value);
        if (!options.now) {
            return "--now wants an instant such as 2026-11-21T12:00:00Z, not \"" +
                   std::string(value) + "\"";
        }
    }
    return std::nullopt;
}

bool takesValue(std::string_view name) {
    return name == "--size" || name == "--entries" || name == "--seed" || name == "--now";
}

}  // namespace

std::variant<Options, std::string> parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string& argument = arguments[index];
        if (argument == "--help") {
            options.help = true;
            return options;
        }
        if (argument.empty() || argument.front() != '-') {
            if (argument.empty() || !options.folder.empty()) {
                return "one folder is wanted, \"" + argument + "\" is one too many";
            }
            options.folder = argument;
            continue;
        }
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        if (!takesValue(name)) {
            return "unknown option \"" + argument + "\"";
        }
        std::string value;
        if (equals != std::string::npos) {
            value = argument.substr(equals + 1);
        } else if (index + 1 < arguments.size()) {
            value = arguments[++index];
        } else {
            return name + " wants a value";
        }
        if (auto problem = store(options, name, value)) {
            return std::move(*problem);
        }
    }
    if (options.folder.empty()) {
        return "the folder to make the disk in is missing";
    }
    return options;
}

std::string usageText() {
    return "usage: morvane-sample-disk DIR [--size BYTES|8G|1G] [--entries N] [--seed N]"
           " [--now ISO8601]\n"
           "Makes a Mac disk in DIR, which must be empty or not exist: DIR/root and"
           " DIR/host.json.\n";
}

}  // namespace morvane::sample
