#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "model/letters.h"
#include "scanners/frame.h"

namespace morvane::CleanupScanner {

namespace {

// Words of an identifier that say what sort of thing it is, not which app.
constexpr std::array<std::string_view, 10> noiseWords{
    "mac", "macos", "osx", "desktop", "app", "client", "browser", "xos", "macgap", "application"};

std::vector<std::string_view> piecesOf(std::string_view text) {
    std::vector<std::string_view> pieces;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find('.', start), text.size());
        pieces.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return pieces;
}

bool isIdentifierPiece(std::string_view piece) {
    if (piece.empty()) return false;
    while (!piece.empty()) {
        const char32_t character = takeCharacter(piece);
        if (!isLetter(character) && !isNumber(character) && character != U'-' &&
            character != U'_') {
            return false;
        }
    }
    return true;
}

}  // namespace

bool looksLikeBundleID(std::string_view name) {
    const std::vector<std::string_view> pieces = piecesOf(name);
    return pieces.size() >= 3 && std::all_of(pieces.begin(), pieces.end(), isIdentifierPiece);
}

std::string prettyAppName(std::string_view bundleID) {
    std::vector<std::string_view> pieces = piecesOf(bundleID);
    std::erase_if(pieces, [](std::string_view piece) { return piece.empty(); });
    if (pieces.size() < 2) return withUppercasedFirst(bundleID);
    pieces.erase(pieces.begin());
    const auto isNoise = [](std::string_view piece) {
        return std::find(noiseWords.begin(), noiseWords.end(), lowercased(piece)) !=
               noiseWords.end();
    };
    const auto named = std::find_if_not(pieces.rbegin(), pieces.rend(), isNoise);
    return withUppercasedFirst(named == pieces.rend() ? pieces.back() : *named);
}

std::string normalisedName(std::string_view text) {
    const std::string lower = lowercased(text);
    std::string letters;
    for (std::string_view rest = lower; !rest.empty();) {
        const std::string_view before = rest;
        if (isLetter(takeCharacter(rest))) letters += before.substr(0, before.size() - rest.size());
    }
    return letters;
}

}  // namespace morvane::CleanupScanner
