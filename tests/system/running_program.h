#pragma once

#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace morvane::test {

// A program started with pipes at its standard input and output and a file at its standard error.
class RunningProgram {
public:
    // Starts it in the folder "/"; entries of `environment` ("NAME=value") replace those of the
    // test's own.
    explicit RunningProgram(const std::vector<std::string>& command,
                            const std::vector<std::string>& environment = {});
    // Ends its input and waits for it.
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    // Writes all of it; false when the program reads no more.
    bool write(const std::string& bytes);
    // The next line without its line feed; nothing at the end of the output.
    std::optional<std::string> readLine();
    void closeInput();
    // Ends its input, waits, and gives the exit status, or 1000 and the number of the signal that
    // killed it. May be asked again.
    int end();
    // Kills it outright, as a power cut would.
    void kill();
    [[nodiscard]] std::string errors() const;
    [[nodiscard]] pid_t process() const { return process_; }

private:
    pid_t process_ = -1;
    int input_ = -1;
    int output_ = -1;
    int errors_ = -1;
    std::optional<int> status_;
    std::string buffer_;
    std::size_t searched_ = 0;
};

}  // namespace morvane::test
