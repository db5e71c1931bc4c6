#include "services/feed/signature.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include "feed/updater_on_a_server.h"

namespace morvane {
namespace {

class SignedFile : public testing::Test {
protected:
    SignedFile() : file(::memfd_create("signed", MFD_CLOEXEC)) {}
    ~SignedFile() override { ::close(file); }

    void write(const std::string& bytes) const {
        EXPECT_EQ(::ftruncate(file, 0), 0);
        EXPECT_EQ(::pwrite(file, bytes.data(), bytes.size(), 0),
                  static_cast<ssize_t>(bytes.size()));
    }
    [[nodiscard]] bool isRight(const std::string& signature) const {
        return verifies(file, signer.key, readSignature(signature).value());
    }

    int file;
    Signer signer;
};

TEST_F(SignedFile, VerifiesOverItsWholeContent) {
    const std::string bytes(100'000, 'x');
    write(bytes);
    EXPECT_TRUE(isRight(signer.sign(bytes)));
    write(bytes + "y");
    EXPECT_FALSE(isRight(signer.sign(bytes)));
    write(bytes.substr(1));
    EXPECT_FALSE(isRight(signer.sign(bytes)));
    write("");
    EXPECT_FALSE(isRight(signer.sign("")));
}

// RFC 8032, 7.1, test 2.
TEST_F(SignedFile, VerifiesTheStandardsOwnExample) {
    const auto key = readPublicKey("PUAXw+hDiVqStwqnTRt+vJyYLM8uxJaMwM1V8Sr0Zgw=");
    const auto signature = readSignature(
        "kqAJqfDUyrhyDoILX2QlQKKye1QWUD+Ps3YiI+vbadoIWsHkPhWZbkWPNhPQ8R2MOHsurrQwKu6wDSkWErsMAA==");
    ASSERT_TRUE(key && signature);
    write("\x72");
    EXPECT_TRUE(verifies(file, *key, *signature));
    write("\x73");
    EXPECT_FALSE(verifies(file, *key, *signature));
}

TEST(Signature, IsBase64OfExactly64Bytes) {
    EXPECT_TRUE(readSignature(std::string(86, 'A') + "==").has_value());
    EXPECT_FALSE(readSignature(std::string(86, 'A')).has_value());
    EXPECT_FALSE(readSignature(std::string(84, 'A')).has_value());
    EXPECT_FALSE(readSignature(std::string(88, 'A')).has_value());
    EXPECT_FALSE(readSignature("").has_value());
    EXPECT_TRUE(readPublicKey(std::string(43, 'A') + "=").has_value());
    EXPECT_FALSE(readPublicKey(std::string(86, 'A') + "==").has_value());
}

TEST(NameForDownload, IsOnePartOfAPath) {
    EXPECT_EQ(nameForDownload("Morvane.dmg"), "Morvane.dmg");
    EXPECT_EQ(nameForDownload("../.bashrc"), "bashrc");
    EXPECT_EQ(nameForDownload("a/b\n.dmg"), "ab.dmg");
    EXPECT_EQ(nameForDownload(""), "Morvane update");
    EXPECT_EQ(nameForDownload("..."), "Morvane update");
    EXPECT_EQ(nameForDownload(std::string(256, 'a')), "Morvane update");
}

}  // namespace
}  // namespace morvane
