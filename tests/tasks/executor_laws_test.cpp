#include "tasks/executor_laws.h"

#include "tasks/event_loop.h"

namespace morvane {
namespace {

class RealLoop {
public:
    Executor& executor() { return loop_; }
    void runUntil(const std::function<bool()>& done) {
        while (!done()) {
            loop_.waitForWork();
            loop_.runReady();
        }
    }

private:
    EventLoop loop_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(EventLoop, ExecutorLaws, RealLoop);

}  // namespace
}  // namespace morvane
