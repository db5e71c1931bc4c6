#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

#include "platform/folder/descriptor.h"

namespace morvane {

// Lets the program end in good order when it is asked to from outside: by the end of a session, the
// terminal it was started from, or Control-C. A second signal of the same kind ends it outright,
// and one that was ignored at the start stays so. At most one at a time; main thread.
class EndSignals {
public:
    // `asked` runs in a turn of the main loop, or never.
    explicit EndSignals(std::function<void()> asked);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    folder::Descriptor event_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace morvane
