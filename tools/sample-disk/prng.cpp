#include "prng.h"

namespace morvane::sample {
namespace {

/// FNV-1a.
std::uint64_t hashOf(std::string_view label) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char letter : label) {
        hash ^= static_cast<unsigned char>(letter);
        hash *= 0x100000001b3U;
    }
    return hash;
}

}  // namespace

Prng::Prng(std::uint64_t seed, std::string_view label)
    : state_(hashOf(label) ^ (seed * 0xd1342543de82ef95U)) {
    next();
}

std::uint64_t Prng::next() {
    state_ += 0x9e3779b97f4a7c15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30U)) * 0xbf58476d1ce4e5b9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94d049bb133111ebU;
    return mixed ^ (mixed >> 31U);
}

std::int64_t Prng::between(std::int64_t low, std::int64_t high) {
    const auto span = static_cast<std::uint64_t>(high - low) + 1;
    return low + static_cast<std::int64_t>(next() % span);
}

std::string Prng::draw(std::string_view alphabet, std::size_t count) {
    std::string text;
    text.reserve(count);
    for (std::size_t index = 0; index < count; ++index) {
        text.push_back(alphabet[static_cast<std::size_t>(next() % alphabet.size())]);
    }
    return text;
}

std::string Prng::lowerHex(std::size_t digits) {
    return draw("0123456789abcdef", digits);
}

std::string Prng::upperHex(std::size_t digits) {
    return draw("0123456789ABCDEF", digits);
}

std::string Prng::lowerLetters(std::size_t count) {
    return draw("abcdefghijklmnopqrstuvwxyz", count);
}

std::string Prng::uuid() {
    std::string text = upperHex(32);
    for (const std::size_t place : {20U, 16U, 12U, 8U}) {
        text.insert(place, 1, '-');
    }
    return text;
}

}  // namespace morvane::sample
