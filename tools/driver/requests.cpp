#include "driver/requests.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "driver/arguments.h"
#include "driver/calls.h"
#include "driver/fields.h"
#include "driver/forms.h"
#include "driver/settings.h"
#include "platform/formats/json.h"
#include "platform/formats/json_fields.h"

namespace morvane::driver {

namespace {

using nlohmann::json;

std::string written(const Answer& answer) {
    return answer.dump(-1, ' ', false, Answer::error_handler_t::replace);
}

std::string resultAnswer(Answer result) {
    return written({{"result", std::move(result)}});
}

std::string runCall(const json& request, Program& program) {
    const json* arguments = find(request, "args");
    const json* waits = find(request, "wait");
    const std::optional<std::string> name = asText(*find(request, "call"));
    if (!name) return errorAnswer("\"call\" is not a text");
    if (arguments != nullptr && !arguments->is_object()) {
        return errorAnswer("\"args\" is not an object");
    }
    if (waits != nullptr && !waits->is_boolean()) return errorAnswer("\"wait\" is not a boolean");
    const auto found = calls().find(*name);
    if (found == calls().end()) {
        return errorAnswer("there is no call \"" + name->substr(0, 80) + "\"");
    }
    Arguments values(arguments, "argument");
    const Invocation invocation = found->second(program, values);
    values.refuseUnknown();
    if (values.error()) return errorAnswer(*values.error());

    auto result = std::make_shared<Answer>(nullptr);
    auto work = std::make_shared<WorkInProgress>();
    {
        const WorkGuard guard(work);
        invocation.begin(result);
    }
    const bool wait = waits == nullptr || *asBoolean(*waits) || invocation.isAwaited;
    if (wait) program.loop().runUntil([&] { return work->tasks == 0; });
    return resultAnswer(std::move(*result));
}

std::string waitForAll(const json& value, Program& program) {
    if (asBoolean(value) != true) return errorAnswer("\"wait\" is not true");
    program.waitForAll();
    return resultAnswer(nullptr);
}

std::string readFields(const json& value, Program& program) {
    const std::optional<std::vector<std::string>> names = asTexts(value);
    if (!names) return errorAnswer("\"get\" is not a list of texts");
    Answer answer = Answer::object();
    for (const std::string& name : *names) {
        std::optional<Answer> field = readField(program.state(), name);
        if (!field) return errorAnswer("there is no field \"" + name.substr(0, 80) + "\"");
        answer[name] = std::move(*field);
    }
    return written(answer);
}

std::string setFields(const json& value, Program& program) {
    if (!value.is_object()) return errorAnswer("\"set\" is not an object");
    if (const auto error = writeFields(program.state(), value)) return errorAnswer(*error);
    return resultAnswer(nullptr);
}

std::string advance(const json& value, Program& program) {
    const std::optional<double> seconds = asNumber(value);
    if (!seconds) return errorAnswer("\"advance\" is not a number");
    if (!program.loop().hasVirtualClock()) {
        return errorAnswer("\"advance\" needs a virtual clock, which \"now\" in host.json starts");
    }
    if (*seconds < 0) return errorAnswer("\"advance\" is negative");
    const auto room = std::chrono::duration<double>(Instant::max() - program.loop().now()).count();
    if (*seconds > room / 2) return errorAnswer("\"advance\" is out of range");
    program.loop().advance(std::chrono::nanoseconds(std::llround(*seconds * 1e9)));
    return resultAnswer(nullptr);
}

std::string replaceHost(const json& value, Program& program) {
    if (!value.is_object()) return errorAnswer("\"host\" is not an object");
    if (const auto error = program.system().replaceHost(value)) return errorAnswer(*error);
    return resultAnswer(nullptr);
}

std::string takeEffects(const json& value, Program& program) {
    if (asBoolean(value) != true) return errorAnswer("\"effects\" is not true");
    std::string list;
    for (const folder::Effect& effect : program.system().effects().take()) {
        list += (list.empty() ? "" : ",") + folder::effectJSON(effect);
    }
    return "{\"result\":[" + list + "]}";
}

struct Kind {
    std::string_view key;
    std::string (*carryOut)(const json& value, Program& program);
};
constexpr Kind kinds[] = {{"wait", waitForAll}, {"get", readFields},   {"set", setFields},
                          {"advance", advance}, {"host", replaceHost}, {"effects", takeEffects}};

}  // namespace

std::string errorAnswer(const std::string& sentence) {
    return written({{"error", sentence}});
}

std::string answerTo(std::string_view line, Program& program) {
    const std::optional<JSONDocument> document = readJSON(line);
    if (!document) return errorAnswer("the line is not JSON");
    const json& request = document->root();
    if (!request.is_object()) return errorAnswer("the line is not a JSON object");
    if (find(request, "call") != nullptr) {
        for (const auto& [key, value] : request.items()) {
            if (key != "call" && key != "args" && key != "wait") {
                return errorAnswer("\"" + key.substr(0, 80) + "\" does not go with \"call\"");
            }
        }
        return runCall(request, program);
    }
    if (request.size() != 1) return errorAnswer("a request has exactly one key");
    const std::string& key = request.begin().key();
    for (const Kind& kind : kinds) {
        if (kind.key == key) return kind.carryOut(request.begin().value(), program);
    }
    return errorAnswer("there is no request \"" + key.substr(0, 80) + "\"");
}

}  // namespace morvane::driver
