#include "tasks/background_thread.h"

#ifdef __APPLE__
#include <pthread/qos.h>
#else
#include <sched.h>
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
    // The main thread wakes one of these in the middle of its turn, and would be put aside for it
    // at once. Those that are known to work in batches wait until it is done.
    const sched_param noOther{};
    ::sched_setscheduler(0, SCHED_BATCH, &noOther);
#endif
}

}  // namespace morvane
