#include "system/running_program.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <map>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace morvane::test {

namespace {

std::vector<char*> pointers(std::vector<std::string>& words) {
    std::vector<char*> list;
    for (std::string& word : words) list.push_back(word.data());
    list.push_back(nullptr);
    return list;
}

std::vector<std::string> environmentWith(const std::vector<std::string>& replaced) {
    std::map<std::string, std::string> entries;
    const auto add = [&](const std::string& entry) {
        entries[entry.substr(0, entry.find('='))] = entry;
    };
    for (char** entry = environ; *entry != nullptr; ++entry) add(*entry);
    for (const std::string& entry : replaced) add(entry);
    std::vector<std::string> list;
    for (const auto& [name, entry] : entries) list.push_back(entry);
    return list;
}

}  // namespace

RunningProgram::RunningProgram(const std::vector<std::string>& command,
                               const std::vector<std::string>& environment) {
    std::signal(SIGPIPE, SIG_IGN);
    std::array<int, 2> input{};
    std::array<int, 2> output{};
    errors_ = ::memfd_create("errors", MFD_CLOEXEC);
    EXPECT_GE(errors_, 0);
    EXPECT_EQ(::pipe2(input.data(), O_CLOEXEC), 0);
    EXPECT_EQ(::pipe2(output.data(), O_CLOEXEC), 0);
    std::vector<std::string> words = command;
    std::vector<std::string> entries = environmentWith(environment);
    const std::vector<char*> arguments = pointers(words);
    const std::vector<char*> variables = pointers(entries);
    process_ = ::fork();
    if (process_ == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        ::dup2(input[0], STDIN_FILENO);
        ::dup2(output[1], STDOUT_FILENO);
        ::dup2(errors_, STDERR_FILENO);
        if (::chdir("/") != 0) ::_exit(126);
        ::execve(arguments[0], arguments.data(), variables.data());
        ::_exit(127);
    }
    ::close(input[0]);
    ::close(output[1]);
    input_ = input[1];
    output_ = output[0];
}

RunningProgram::~RunningProgram() {
    end();
    ::close(output_);
    ::close(errors_);
}

bool RunningProgram::write(const std::string& bytes) {
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(input_, bytes.data() + written, bytes.size() - written);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        written += static_cast<std::size_t>(count);
    }
    return true;
}

std::optional<std::string> RunningProgram::readLine() {
    while (true) {
        const std::size_t end = buffer_.find('\n', searched_);
        if (end != std::string::npos) {
            std::string line = buffer_.substr(0, end);
            buffer_.erase(0, end + 1);
            searched_ = 0;
            return line;
        }
        searched_ = buffer_.size();
        std::array<char, 65536> bytes;
        const ssize_t count = ::read(output_, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return std::nullopt;
        buffer_.append(bytes.data(), static_cast<std::size_t>(count));
    }
}

void RunningProgram::closeInput() {
    if (input_ >= 0) ::close(input_);
    input_ = -1;
}

int RunningProgram::end() {
    closeInput();
    if (status_) return *status_;
    // What nobody asked for is read all the same, so that the program is not held up by it.
    while (readLine()) {
    }
    int status = 0;
    while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
    return *status_;
}

void RunningProgram::kill() {
    ::kill(process_, SIGKILL);
    end();
}

std::string RunningProgram::errors() const {
    std::string text;
    std::array<char, 4096> bytes;
    while (true) {
        const ssize_t count =
            ::pread(errors_, bytes.data(), bytes.size(), static_cast<off_t>(text.size()));
        if (count <= 0) return text;
        text.append(bytes.data(), static_cast<std::size_t>(count));
    }
}

}  // namespace morvane::test
