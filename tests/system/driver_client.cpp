#include "system/driver_client.h"

#include <gtest/gtest.h>

namespace morvane::test {

DriverClient::DriverClient(const std::filesystem::path& disk,
                           const std::vector<std::string>& environment)
    : program_({MORVANE_DRIVER, "--disk", disk.native()}, environment) {}

DriverClient::~DriverClient() {
    const int status = program_.end();
    if (isKilled_) return;
    EXPECT_EQ(status, 0);
    EXPECT_EQ(program_.errors(), "");
}

void DriverClient::send(const Json& request) {
    EXPECT_TRUE(program_.write(request.dump() + "\n"));
}

Json DriverClient::answer() {
    const std::optional<std::string> line = program_.readLine();
    if (!line) {
        ADD_FAILURE() << "the driver ended: " << program_.errors();
        return Json::object();
    }
    Json parsed = Json::parse(*line, nullptr, false);
    if (parsed.is_discarded()) ADD_FAILURE() << "not JSON: " << line->substr(0, 300);
    return parsed;
}

Json DriverClient::ask(const Json& request) {
    send(request);
    return answer();
}

Json DriverClient::askLine(const std::string& line) {
    EXPECT_TRUE(program_.write(line + "\n"));
    return answer();
}

Json DriverClient::result(const Json& request) {
    const Json given = ask(request);
    if (!given.is_object() || !given.contains("result")) {
        ADD_FAILURE() << request.dump().substr(0, 300) << " is answered "
                      << given.dump().substr(0, 300);
        return nullptr;
    }
    EXPECT_EQ(given.size(), 1U);
    return given.at("result");
}

std::string DriverClient::error(const Json& request) {
    const Json given = ask(request);
    if (!given.is_object() || given.size() != 1 || !given.contains("error") ||
        !given.at("error").is_string()) {
        ADD_FAILURE() << request.dump().substr(0, 300) << " is answered "
                      << given.dump().substr(0, 300);
        return "";
    }
    return given.at("error");
}

Json DriverClient::call(const std::string& name, const Json& arguments) {
    return result({{"call", name}, {"args", arguments}});
}

Json DriverClient::begin(const std::string& name, const Json& arguments) {
    return result({{"call", name}, {"args", arguments}, {"wait", false}});
}

Json DriverClient::get(const std::string& field) {
    const Json given = ask({{"get", {field}}});
    if (!given.is_object() || !given.contains(field)) {
        ADD_FAILURE() << field << " is answered " << given.dump().substr(0, 300);
        return nullptr;
    }
    EXPECT_EQ(given.size(), 1U);
    return given.at(field);
}

void DriverClient::set(const Json& fields) {
    EXPECT_EQ(result({{"set", fields}}), nullptr);
}

void DriverClient::advance(double seconds) {
    EXPECT_EQ(result({{"advance", seconds}}), nullptr);
}

void DriverClient::host(const Json& keys) {
    EXPECT_EQ(result({{"host", keys}}), nullptr);
}

void DriverClient::waitForAll() {
    EXPECT_EQ(result({{"wait", true}}), nullptr);
}

Json DriverClient::effects() {
    return result({{"effects", true}});
}

Json DriverClient::effects(const std::string& kind) {
    Json found = Json::array();
    for (const Json& effect : effects()) {
        if (effect.contains(kind)) found.push_back(effect.at(kind));
    }
    return found;
}

void DriverClient::kill() {
    isKilled_ = true;
    program_.kill();
}

Refusal runDriver(const std::vector<std::string>& words) {
    std::vector<std::string> command{MORVANE_DRIVER};
    command.insert(command.end(), words.begin(), words.end());
    RunningProgram program(command);
    Refusal refusal;
    program.closeInput();
    while (const auto line = program.readLine()) refusal.output += *line + "\n";
    refusal.status = program.end();
    refusal.errors = program.errors();
    return refusal;
}

}  // namespace morvane::test
