#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace morvane {

// The libraries of a window system end the process by themselves when the display goes away, in the
// middle of whatever they were called for and on whichever thread noticed. While this lives, what
// must not be left half done is done before the process is gone; it ends with status 1, and nothing
// else is torn down. At most one at a time; belongs to the main thread.
class UntimelyEnd {
public:
    // `finish` runs without the main loop, on the main thread. Only where that does not answer for
    // so long, since it waits for the thread that ends the process, it runs on that one in its
    // place. The main loop's turns are far shorter, even one that puts very much back, and nobody
    // sees the program wait.
    explicit UntimelyEnd(std::function<void()> finish,
                         std::chrono::milliseconds patience = std::chrono::seconds(20));
    ~UntimelyEnd();
    UntimelyEnd(const UntimelyEnd&) = delete;
    UntimelyEnd& operator=(const UntimelyEnd&) = delete;

    // What was made, or begun by a library, since this was made or last called would be torn down
    // first, under threads that use it still. From here on it is not.
    static void comeFirst();

private:
    static void processEnds();
    [[noreturn]] void finish();

    std::function<void()> finish_;
    std::chrono::milliseconds patience_;
    std::thread::id mainThread_ = std::this_thread::get_id();
};

}  // namespace morvane
