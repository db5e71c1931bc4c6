#include "driver/requests.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "driver/arguments.h"
#include "driver/calls.h"
#include "driver/fields.h"
#include "driver/forms.h"
#include "driver/screen_requests.h"
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

// Runs `begin`; with `wait`, until everything that was begun in its course has ended.
void runWork(const std::function<void()>& begin, bool wait, Program& program) {
    auto work = std::make_shared<WorkInProgress>();
    {
        const WorkGuard guard(work);
        begin();
    }
    if (wait) program.loop().runUntil([&] { return work->tasks == 0; });
}

// The keys beside `key` are among `others`, and "wait" is a boolean where it is there; else one
// sentence.
std::optional<std::string> checkKeys(const json& request, std::string_view key,
                                     std::initializer_list<std::string_view> others) {
    for (const auto& [each, value] : request.items()) {
        if (each == key || std::find(others.begin(), others.end(), each) != others.end()) continue;
        return "\"" + each.substr(0, 80) + "\" does not go with \"" + std::string(key) + "\"";
    }
    const json* waits = find(request, "wait");
    if (waits != nullptr && !waits->is_boolean()) return "\"wait\" is not a boolean";
    return std::nullopt;
}

bool waits(const json& request) {
    const json* wait = find(request, "wait");
    return wait == nullptr || *asBoolean(*wait);
}

std::string runCall(const json& request, Program& program) {
    if (const auto error = checkKeys(request, "call", {"args", "wait"})) return errorAnswer(*error);
    const json* arguments = find(request, "args");
    const std::optional<std::string> name = asText(*find(request, "call"));
    if (!name) return errorAnswer("\"call\" is not a text");
    if (arguments != nullptr && !arguments->is_object()) {
        return errorAnswer("\"args\" is not an object");
    }
    const auto found = calls().find(*name);
    if (found == calls().end()) {
        return errorAnswer("there is no call \"" + name->substr(0, 80) + "\"");
    }
    Arguments values(arguments, "argument");
    const Invocation invocation = found->second(program, values);
    values.refuseUnknown();
    if (values.error()) return errorAnswer(*values.error());

    auto result = std::make_shared<Answer>(nullptr);
    runWork([&] { invocation.begin(result); }, waits(request) || invocation.isAwaited, program);
    return resultAnswer(std::move(*result));
}

template <Work (*read)(const json&, Program&)>
std::string runScreenWork(const json& request, Program& program, std::string_view key) {
    if (const auto error = checkKeys(request, key, {"wait"})) return errorAnswer(*error);
    Work work = read(request, program);
    if (const auto* error = std::get_if<std::string>(&work)) return errorAnswer(*error);
    runWork(std::get<std::function<void()>>(work), waits(request), program);
    return resultAnswer(nullptr);
}

std::string showScreen(const json& request, Program& program) {
    auto screen = readScreen(request, program);
    if (const auto* error = std::get_if<std::string>(&screen)) return errorAnswer(*error);
    return resultAnswer(std::move(std::get<Answer>(screen)));
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
    if (find(request, "call") != nullptr) return runCall(request, program);
    if (find(request, "screen") != nullptr) return showScreen(request, program);
    if (find(request, "appear") != nullptr) {
        return runScreenWork<appearance>(request, program, "appear");
    }
    if (find(request, "becameActive") != nullptr) {
        return runScreenWork<activation>(request, program, "becameActive");
    }
    if (find(request, "press") != nullptr) return runScreenWork<press>(request, program, "press");
    if (request.size() != 1) return errorAnswer("a request has exactly one key");
    const std::string& key = request.begin().key();
    for (const Kind& kind : kinds) {
        if (kind.key == key) return kind.carryOut(request.begin().value(), program);
    }
    return errorAnswer("there is no request \"" + key.substr(0, 80) + "\"");
}

}  // namespace morvane::driver
