#pragma once

#include <filesystem>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <string>

#include "system/running_program.h"

namespace morvane::test {

using Json = nlohmann::json;

// Speaks to a driver of its own: one request, one answer. A test in which the driver dies, says
// something on standard error or ends with another status than 0 fails.
class DriverClient {
public:
    explicit DriverClient(const std::filesystem::path& disk,
                          const std::vector<std::string>& environment = {});
    ~DriverClient();

    // The answer to one request as it stands.
    Json ask(const Json& request);
    // The same for a line that need not be JSON.
    Json askLine(const std::string& line);
    void send(const Json& request);
    Json answer();

    // The result; an error in its place fails the test.
    Json result(const Json& request);
    // The sentence; a result in its place fails the test.
    std::string error(const Json& request);

    Json call(const std::string& name, const Json& arguments = Json::object());
    // As `call`, answered after the operation's synchronous part.
    Json begin(const std::string& name, const Json& arguments = Json::object());
    Json get(const std::string& field);
    void set(const Json& fields);
    void advance(double seconds);
    void host(const Json& keys);
    void waitForAll();
    Json effects();
    // The effects of one kind, each without its name.
    Json effects(const std::string& kind);

    // Ends the input, waits for the end and gives the status.
    int end() { return program_.end(); }
    void kill();
    void closeInput() { program_.closeInput(); }
    [[nodiscard]] pid_t process() const { return program_.process(); }

private:
    RunningProgram program_;
    bool isKilled_ = false;
};

// What a driver with these words after its name says and how it ends, with nothing to read.
struct Refusal {
    int status = 0;
    std::string errors;
    std::string output;
};
[[nodiscard]] Refusal runDriver(const std::vector<std::string>& words);

}  // namespace morvane::test
