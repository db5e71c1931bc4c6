#include <cmath>
#include <utility>

#include "core/ignore_rules.h"
#include "driver/calls.h"
#include "model/words.h"
#include "scanners/docker.h"
#include "scanners/frame.h"
#include "scanners/inventory.h"
#include "tasks/background.h"

namespace morvane::driver {

namespace {

Invocation giving(Answer value) {
    return {[value = std::move(value)](const std::shared_ptr<Answer>& result) { *result = value; }};
}

// Runs `look` on the pool; the answer is what it returns.
Invocation looking(Program& program, std::function<Answer(const ScanContext&)> look) {
    const auto begin = [&program, look = std::move(look)](const std::shared_ptr<Answer>& result) {
        program.scope().start([](Program& where, std::function<Answer(const ScanContext&)> ask,
                                 std::shared_ptr<Answer> into) -> Task<void> {
            const Instant now = where.loop().now();
            const Platform& platform = where.state().platform();
            *into = co_await background(
                [&](const StopToken& token) { return ask(ScanContext{platform, now, token}); });
        }(program, look, result));
    };
    return {begin, true};
}

void addWithText(Calls& calls, const char* name, const char* argument,
                 const std::function<Answer(const std::string&)>& function) {
    calls.emplace(name, [argument, function](Program&, Arguments& arguments) {
        return giving(function(arguments.text(argument)));
    });
}

const Region& regionOf(Program& program) {
    return program.state().platform().region;
}

Invocation relativeDayTextCall(Program& program, Arguments& arguments) {
    const std::optional<Instant> date = arguments.optionalDate("date");
    const Instant now = arguments.date("now");
    return giving(relativeDayText(date, now, regionOf(program)));
}

Invocation sweepDateTextCall(Program& program, Arguments& arguments) {
    const Instant date = arguments.date("date");
    return giving(sweepDateText(date, program.loop().now(), regionOf(program)));
}

Invocation usedWordsCall(Program& program, Arguments& arguments) {
    const std::optional<Instant> date = arguments.optionalDate("date");
    return giving(CleanupScanner::usedWords(date, program.loop().now(), regionOf(program)));
}

Invocation isIgnoredCall(Program&, Arguments& arguments) {
    const std::filesystem::path url = arguments.path("url");
    return giving(isIgnored(url, arguments.texts("folders")));
}

Invocation measureCall(Program& program, Arguments& arguments) {
    return looking(program, [url = arguments.path("url")](const ScanContext& scan) -> Answer {
        const CleanupScanner::Measure measured = CleanupScanner::measure(scan, url);
        return {{"bytes", measured.bytes}, {"newest", form(measured.newest)}};
    });
}

Invocation totalSizeCall(Program& program, Arguments& arguments) {
    return looking(program, [urls = arguments.paths("urls")](const ScanContext& scan) -> Answer {
        return CleanupScanner::totalSize(scan, urls);
    });
}

Invocation runProcessCall(Program& program, Arguments& arguments) {
    const std::filesystem::path executable = arguments.path("executable");
    const std::vector<std::string> words = arguments.texts("arguments");
    const std::optional<double> seconds = arguments.optionalNumber("limit");
    std::optional<std::chrono::milliseconds> limit;
    if (seconds) {
        if (!(*seconds >= 0) || *seconds > 1e9)
            arguments.refuse("limit", "is out of range");
        else
            limit = std::chrono::milliseconds(std::llround(*seconds * 1000));
    }
    return looking(program, [=](const ScanContext& scan) -> Answer {
        const auto ran = scan.platform.processes.run(executable, words, limit, scan.token);
        if (!ran) return nullptr;
        return {{"status", ran->status}, {"output", ran->output}};
    });
}

Invocation installedAppIndexCall(Program& program, Arguments&) {
    return looking(program, [](const ScanContext& scan) -> Answer {
        const CleanupScanner::InstalledAppIndex index = CleanupScanner::installedAppIndex(scan);
        return {{"bundleIDs", form(index.bundleIDs)}, {"names", form(index.names)}};
    });
}

Invocation listApplicationsCall(Program& program, Arguments&) {
    return looking(program, [](const ScanContext& scan) -> Answer {
        return form(CleanupScanner::listApplications(scan));
    });
}

}  // namespace

void addFunctions(Calls& calls) {
    calls.emplace("sizeText", [](Program&, Arguments& arguments) {
        return giving(sizeText(arguments.number("mb")));
    });
    calls.emplace("capacityText", [](Program&, Arguments& arguments) {
        return giving(capacityText(arguments.number("gb")));
    });
    calls.emplace("relativeDayText", relativeDayTextCall);
    calls.emplace("sweepDateText", sweepDateTextCall);
    calls.emplace("usedWords", usedWordsCall);
    addWithText(calls, "looksLikeBundleID", "name",
                [](const std::string& name) { return CleanupScanner::looksLikeBundleID(name); });
    addWithText(calls, "prettyAppName", "bundleID",
                [](const std::string& id) { return CleanupScanner::prettyAppName(id); });
    addWithText(calls, "normalisedName", "text",
                [](const std::string& text) { return CleanupScanner::normalisedName(text); });
    addWithText(calls, "parseDockerSize", "text", [](const std::string& text) {
        return form(CleanupScanner::parseDockerSize(text));
    });
    calls.emplace("isIgnored", isIgnoredCall);
    calls.emplace("measure", measureCall);
    calls.emplace("totalSize", totalSizeCall);
    calls.emplace("runProcess", runProcessCall);
    calls.emplace("installedAppIndex", installedAppIndexCall);
    calls.emplace("listApplications", listApplicationsCall);
}

}  // namespace morvane::driver
