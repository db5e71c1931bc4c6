#include "faults/interception.h"

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>
#include <unistd.h>

namespace morvane::test {

namespace {

std::vector<std::string> commandFor(const std::vector<std::string>& options,
                                    const std::set<pid_t>& threads, const std::string& record) {
    std::string command = "exec strace -o '" + record + "'";
    for (const std::string& option : options) command += " " + option;
    // Each thread counts its own calls; without -f nobody else's count.
    for (const pid_t thread : threads) command += " -p " + std::to_string(thread);
    return {"/bin/sh", "-c", command + " 2>&1"};
}

}  // namespace

std::vector<std::string> Interception::one(const std::string& call, int number,
                                           const std::string& what) {
    return {"-e trace=" + call,
            "-e inject=" + call + ":" + what + ":when=" + std::to_string(number)};
}

Interception::Interception(const std::vector<std::string>& options, const std::set<pid_t>& threads,
                           const std::string& record)
    : record_(record), strace_(commandFor(options, threads, record)) {
    for (std::size_t attached = 0; attached < threads.size() && isAttached_;) {
        const std::optional<std::string> line = strace_.readLine();
        isAttached_ = line.has_value();
        if (line && line->ends_with(" attached")) ++attached;
    }
}

std::string Interception::finish() {
    strace_.end();
    std::ostringstream text;
    text << std::ifstream(record_).rdbuf();
    return std::move(text).str();
}

std::set<pid_t> threadsOf(pid_t process) {
    std::set<pid_t> threads;
    std::error_code failed;
    for (const auto& entry : std::filesystem::directory_iterator(
             "/proc/" + std::to_string(process) + "/task", failed)) {
        threads.insert(std::stoi(entry.path().filename().native()));
    }
    return threads;
}

std::map<pid_t, std::map<std::string, int>> countCalls(const std::string& record) {
    std::map<pid_t, std::map<std::string, int>> counts;
    std::istringstream lines(record);
    for (std::string line; std::getline(lines, line);) {
        // "9317  openat(3, …", but not "9317  <... openat resumed>…" nor "9317  +++ exited …".
        std::istringstream words(line);
        pid_t thread = 0;
        std::string call;
        if (!(words >> thread >> call)) continue;
        const std::size_t end = call.find('(');
        if (end == std::string::npos || std::isalpha(static_cast<unsigned char>(call[0])) == 0) {
            continue;
        }
        ++counts[thread][call.substr(0, end)];
    }
    return counts;
}

bool canIntercept() {
    static const bool can = [] {
        RunningProgram waiting({"/bin/sh", "-c", "read line"});
        std::string record = (std::filesystem::temp_directory_path() / "morvane-XXXXXX").native();
        const int file = ::mkstemp(record.data());
        if (file < 0) return false;
        bool attached = false;
        {
            Interception interception(Interception::one("getdents64", 1, "error=EIO"),
                                      {waiting.process()}, record);
            attached = interception.isAttached();
            waiting.end();
        }
        ::close(file);
        ::unlink(record.c_str());
        return attached;
    }();
    return can;
}

}  // namespace morvane::test
