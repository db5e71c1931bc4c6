#pragma once

#include <map>
#include <set>
#include <string>
#include <sys/types.h>
#include <vector>

#include "system/running_program.h"

namespace morvane::test {

// strace at work on some threads of a running program, from the moment this is made until they end.
// The calls that are under way by then go on unseen.
class Interception {
public:
    // Takes down every call of the threads, in `record`.
    static std::vector<std::string> all() { return {}; }
    // Does something to the call that each thread makes as number `number` of this name: `what` is
    // "error=EIO" and the like, and the call is then not made, or "signal=KILL".
    static std::vector<std::string> one(const std::string& call, int number,
                                        const std::string& what);

    Interception(const std::vector<std::string>& options, const std::set<pid_t>& threads,
                 const std::string& record);

    // Whether the system lets these threads be worked on.
    [[nodiscard]] bool isAttached() const { return isAttached_; }
    // Waits until the threads have ended, and gives the record.
    [[nodiscard]] std::string finish();

private:
    std::string record_;
    RunningProgram strace_;
    bool isAttached_ = true;
};

// The threads of a process.
[[nodiscard]] std::set<pid_t> threadsOf(pid_t process);

// How often each thread in a record of strace made each call.
[[nodiscard]] std::map<pid_t, std::map<std::string, int>> countCalls(const std::string& record);

// Whether this machine has strace and lets it work on a program of ours.
[[nodiscard]] bool canIntercept();

}  // namespace morvane::test
