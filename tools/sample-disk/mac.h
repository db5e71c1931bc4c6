#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host_answers.h"
#include "plan.h"

namespace morvane::sample {

inline constexpr std::string_view home = "/Users/sam";
inline constexpr std::string_view library = "/Users/sam/Library";

/// "/Users/sam/" and the rest.
[[nodiscard]] inline std::string inHome(std::string_view rest) {
    return std::string(home) + "/" + std::string(rest);
}

/// "/Users/sam/Library/" and the rest.
[[nodiscard]] inline std::string inLibrary(std::string_view rest) {
    return std::string(library) + "/" + std::string(rest);
}

/// The Mac in the making: its disk and what its system answers. Each function below adds one
/// corner; they may be called in any order, but an earlier one wins where two name a path.
struct Mac {
    Plan disk;
    HostAnswers host;
};

void planApps(Mac& mac);           ///< bundles in all application folders
void planAppCompanions(Mac& mac);  ///< what the installed applications keep in Library
void planCaches(Mac& mac);         ///< caches, browsers, logs and Mail's attachments
void planLeftovers(Mac& mac);      ///< what removed applications left behind
void planBackups(Mac& mac);        ///< backups of phones and tablets
void planXcode(Mac& mac);          ///< build products, device files, simulators, archives
void planPackageCaches(Mac& mac);  ///< download caches of package managers
void planUserFiles(Mac& mac);      ///< downloads, films, music, documents, machines
void planProjects(Mac& mac);       ///< working copies with their dependencies and builds
void planOddNames(Mac& mac);       ///< names in many scripts, links of every sort
void planSystemFolders(Mac& mac);  ///< /Library, /opt, /System and protected folders
void planToolScripts(Mac& mac);    ///< the stateful tools

}  // namespace morvane::sample
