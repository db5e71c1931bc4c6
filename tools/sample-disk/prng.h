#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace morvane::sample {

/// A stream of numbers that is the same on every machine (splitmix64); the distributions of the
/// standard library are not. Seeded with the disk's seed and a label, so that what one part of
/// the disk draws does not move another part.
class Prng {
public:
    Prng(std::uint64_t seed, std::string_view label);

    std::uint64_t next();

    /// A number from `low` to `high`, both included; `low` must not exceed `high`.
    std::int64_t between(std::int64_t low, std::int64_t high);

    /// One element of a table that is not empty.
    template <typename Table>
    const auto& pick(const Table& table) {
        return table[static_cast<std::size_t>(next() % table.size())];
    }

    std::string lowerHex(std::size_t digits);
    std::string upperHex(std::size_t digits);
    std::string lowerLetters(std::size_t count);

    /// Upper-case, in the 8-4-4-4-12 form.
    std::string uuid();

private:
    std::string draw(std::string_view alphabet, std::size_t count);

    std::uint64_t state_;
};

}  // namespace morvane::sample
