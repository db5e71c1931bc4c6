#include "services/feed/signature.h"

#include <sodium.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace morvane {

namespace {

static_assert(std::tuple_size_v<PublicKey> == crypto_sign_PUBLICKEYBYTES);
static_assert(std::tuple_size_v<Signature> == crypto_sign_BYTES);

template <class Bytes>
std::optional<Bytes> read(std::string_view base64) {
    Bytes bytes{};
    std::size_t length = 0;
    if (sodium_base642bin(bytes.data(), bytes.size(), base64.data(), base64.size(), nullptr,
                          &length, nullptr, sodium_base64_VARIANT_ORIGINAL) != 0 ||
        length != bytes.size()) {
        return std::nullopt;
    }
    return bytes;
}

}  // namespace

std::optional<PublicKey> readPublicKey(std::string_view base64) {
    return read<PublicKey>(base64);
}

std::optional<Signature> readSignature(std::string_view base64) {
    return read<Signature>(base64);
}

bool verifies(int file, const PublicKey& key, const Signature& signature) {
    struct stat status{};
    if (sodium_init() < 0 || ::fstat(file, &status) != 0 || status.st_size <= 0) return false;
    const auto size = static_cast<std::size_t>(status.st_size);
    // The signature is over the file as one message: mapped, it need not fit into memory.
    void* content = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    if (content == MAP_FAILED) return false;
    const int verdict = crypto_sign_verify_detached(
        signature.data(), static_cast<const unsigned char*>(content), size, key.data());
    ::munmap(content, size);
    return verdict == 0;
}

}  // namespace morvane
