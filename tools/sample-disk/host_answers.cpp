#include "host_answers.h"

#include <nlohmann/json.hpp>

#include "mac.h"

namespace morvane::sample {
namespace {

using Json = nlohmann::ordered_json;

Json runningOf(const HostAnswers& answers) {
    Json list = Json::array();
    for (const RunningApplication& application : answers.runningApplications) {
        list.push_back({{"bundleIdentifier", application.bundleIdentifier},
                        {"bundlePath", application.bundlePath}});
    }
    return list;
}

Json registeredOf(const HostAnswers& answers) {
    Json object = Json::object();
    for (const NamedPath& entry : answers.registeredApplications) {
        object[entry.name] = entry.path;
    }
    return object;
}

Json displayNamesOf(const HostAnswers& answers) {
    Json object = Json::object();
    for (const NamedPath& entry : answers.displayNames) {
        object[entry.path] = entry.name;
    }
    return object;
}

Json metadataOf(const HostAnswers& answers) {
    Json object = Json::object();
    for (const MetadataItem& item : answers.metadata) {
        Json value = Json::object();
        if (item.lastUsed) {
            value["lastUsed"] = momentText(*item.lastUsed);
        }
        if (item.added) {
            value["added"] = momentText(*item.added);
        }
        object[item.path] = std::move(value);
    }
    return object;
}

Json datesOf(const HostAnswers& answers) {
    Json object = Json::object();
    for (const FileDates& dates : answers.dates) {
        object[dates.path] = {{"added", momentText(dates.added)},
                              {"created", momentText(dates.created)}};
    }
    return object;
}

}  // namespace

std::string hostJson(const HostAnswers& answers) {
    Json host;
    host["home"] = home;
    if (answers.now) {
        host["now"] = momentText(*answers.now);
    }
    host["timeZone"] = "Europe/Berlin";
    host["locale"] = "en_GB";
    host["fullDiskAccess"] = "granted";
    host["notifications"] = "authorized";
    host["volume"] = {{"name", "Macintosh HD"},
                      {"total", 494'384'795'648},
                      {"available", 58'217'431'040},
                      {"availableForImportantUsage", 83'906'248'704}};
    host["mountedFrom"] = "/dev/disk3s1s1";
    host["runningApplications"] = runningOf(answers);
    host["registeredApplications"] = registeredOf(answers);
    host["displayNames"] = displayNamesOf(answers);
    host["hidden"] = answers.hidden;
    host["packages"] = answers.packages;
    host["aliases"] = answers.aliases;
    host["metadata"] = metadataOf(answers);
    host["dates"] = datesOf(answers);
    return host.dump(2) + "\n";
}

}  // namespace morvane::sample
