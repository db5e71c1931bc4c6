#include "tasks/background_thread.h"

#ifdef __APPLE__
#include <pthread/qos.h>
#else
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace morvane {

void standBackForMainThread() {
#ifdef __APPLE__
    ::pthread_set_qos_class_self_np(QOS_CLASS_UTILITY, 0);
#else
    // On Linux each thread has a nice value of its own, against what POSIX says of processes, and
    // the main thread goes by the number of the process. Five steps leave a third of its share.
    constexpr int steps = 5;
    const int ofMainThread = ::getpriority(PRIO_PROCESS, static_cast<id_t>(::getpid()));
    ::setpriority(PRIO_PROCESS, 0, ofMainThread + steps);
#endif
}

}  // namespace morvane
