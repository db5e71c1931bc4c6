#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string_view>

namespace morvane {

// An ed25519 public key and a signature made with its other half (RFC 8032).
using PublicKey = std::array<unsigned char, 32>;
using Signature = std::array<unsigned char, 64>;

// Read from base64 with its padding; nothing where it is not exactly that long.
[[nodiscard]] std::optional<PublicKey> readPublicKey(std::string_view base64);
[[nodiscard]] std::optional<Signature> readSignature(std::string_view base64);

// Whether the signature is the key's over the whole of the open file, which nobody may shorten
// meanwhile. Any thread; takes a second for some hundred megabytes. False too where the file is
// empty or cannot be read.
[[nodiscard]] bool verifies(int file, const PublicKey& key, const Signature& signature);

}  // namespace morvane
