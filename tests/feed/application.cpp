#include <QCoreApplication>
#include <gtest/gtest.h>
#include <optional>

namespace {

// The network needs the toolkit's loop, and that its application object.
class Application : public testing::Environment {
public:
    void SetUp() override { application_.emplace(count_, arguments_); }
    void TearDown() override { application_.reset(); }

private:
    int count_ = 1;
    char name_[10] = "feed_test";
    char* arguments_[2] = {name_, nullptr};
    std::optional<QCoreApplication> application_;
};

[[maybe_unused]] const auto* const application = testing::AddGlobalTestEnvironment(new Application);

}  // namespace
