#include "scanners/known_app_paths.h"

#include <algorithm>
#include <array>

namespace morvane::CleanupScanner {

namespace {

constexpr std::string_view support = "Application Support";
constexpr std::string_view caches = "Caches";
constexpr std::string_view logs = "Logs";

// The rows of one application stand together.
constexpr std::array rows{
    KnownAppPath{"com.microsoft.VSCode", support, "Application Support/Code"},
    KnownAppPath{"com.microsoft.VSCodeInsiders", support, "Application Support/Code - Insiders"},
    KnownAppPath{"com.vscodium", support, "Application Support/VSCodium"},
    KnownAppPath{"com.google.Chrome", support, "Application Support/Google/Chrome"},
    KnownAppPath{"com.google.Chrome", caches, "Caches/Google/Chrome"},
    KnownAppPath{"com.google.Chrome.beta", support, "Application Support/Google/Chrome Beta"},
    KnownAppPath{"com.google.Chrome.beta", caches, "Caches/Google/Chrome Beta"},
    KnownAppPath{"com.google.Chrome.canary", support, "Application Support/Google/Chrome Canary"},
    KnownAppPath{"com.google.Chrome.canary", caches, "Caches/Google/Chrome Canary"},
    KnownAppPath{"com.brave.Browser", support, "Application Support/BraveSoftware/Brave-Browser"},
    KnownAppPath{"com.brave.Browser", caches, "Caches/BraveSoftware/Brave-Browser"},
    KnownAppPath{"com.brave.Browser.beta", support,
                 "Application Support/BraveSoftware/Brave-Browser-Beta"},
    KnownAppPath{"com.brave.Browser.beta", caches, "Caches/BraveSoftware/Brave-Browser-Beta"},
    KnownAppPath{"com.googlecode.iterm2", support, "Application Support/iTerm2"},
    KnownAppPath{"us.zoom.xos", support, "Application Support/zoom.us"},
    KnownAppPath{"us.zoom.xos", logs, "Logs/zoom.us"},
    KnownAppPath{"com.unity3d.unityhub", support, "Application Support/UnityHub"},
    KnownAppPath{"com.docker.docker", support, "Application Support/Docker Desktop"},
    KnownAppPath{"com.jetbrains.toolbox", support, "Application Support/JetBrains/Toolbox"},
    KnownAppPath{"com.jetbrains.toolbox", caches, "Caches/JetBrains/Toolbox"},
    KnownAppPath{"com.jetbrains.toolbox", logs, "Logs/JetBrains/Toolbox"},
    KnownAppPath{"com.github.GitHubClient", support, "Application Support/GitHub Desktop"},
    KnownAppPath{"com.github.GitHubClient", logs, "Logs/GitHub Desktop"},
    KnownAppPath{"com.tinyspeck.slackmacgap", support, "Application Support/Slack"},
    KnownAppPath{"com.hnc.Discord", support, "Application Support/discord"},
    KnownAppPath{"com.spotify.client", support, "Application Support/Spotify"},
    KnownAppPath{"md.obsidian", support, "Application Support/obsidian"},
    KnownAppPath{"com.postmanlabs.mac", support, "Application Support/Postman"},
    KnownAppPath{"com.figma.Desktop", support, "Application Support/Figma"},
    KnownAppPath{"com.sublimetext.4", support, "Application Support/Sublime Text"},
    KnownAppPath{"com.sublimetext.3", support, "Application Support/Sublime Text 3"},
    KnownAppPath{"com.sublimemerge", support, "Application Support/Sublime Merge"},
    KnownAppPath{"com.valvesoftware.steam", support, "Application Support/Steam"},
};

}  // namespace

std::span<const KnownAppPath> knownAppPaths(std::string_view bundleID) {
    const auto isOfApp = [&](const KnownAppPath& row) { return row.bundleID == bundleID; };
    const auto first = std::find_if(rows.begin(), rows.end(), isOfApp);
    const auto last = std::find_if_not(first, rows.end(), isOfApp);
    return {first, last};
}

}  // namespace morvane::CleanupScanner
