#pragma once

#include <array>
#include <string_view>

namespace morvane::sample {

/// How an application keeps its things in Library.
enum class Kit {
    none,       ///< nothing
    classic,    ///< folders named after its identifier
    chromium,   ///< a folder of its own choice, an updater, web data
    sandboxed,  ///< a container and its scripts
};

/// What lies at the top of a bundle to say who it is.
enum class Identity {
    full,
    onlyBuild,     ///< no short version
    noIdentifier,  ///< a list without an identifier
    damaged,       ///< a list that no reader takes
};

struct App {
    std::string_view folder;
    std::string_view name;
    std::string_view identifier;
    std::string_view version;
    std::string_view build;
    double megabytes;
    Kit kit;
    double lastUsedDays;  ///< below 0: the metadata store knows of no use
    bool hasReceipt = false;
    Identity identity = Identity::full;
};

inline constexpr std::string_view applications = "/Applications";
inline constexpr std::string_view utilities = "/Applications/Utilities";
inline constexpr std::string_view ownApplications = "/Users/sam/Applications";

// clang-format off
inline constexpr std::array apps{
    App{applications, "Safari", "com.apple.Safari", "26.1", "21622.2.11.11.9", 22, Kit::none, 0.1},
    App{applications, "Xcode", "com.apple.dt.Xcode", "26.0.1", "24229", 360, Kit::classic, 0.4, true},
    App{applications, "Keynote", "com.apple.iWork.Keynote", "14.4", "7043.0.93", 70, Kit::sandboxed, 21, true},
    App{applications, "Numbers", "com.apple.iWork.Numbers", "14.4", "7043.0.93", 50, Kit::sandboxed, 90, true},
    App{applications, "iMovie", "com.apple.iMovieApp", "10.4.3", "422.1", 90, Kit::sandboxed, 310, true},
    App{applications, "GarageBand", "com.apple.garageband10", "10.4.12", "5921", 60, Kit::sandboxed, 420, true},
    App{applications, "Google Chrome", "com.google.Chrome", "142.0.7444.60", "7444.60", 95, Kit::chromium, 2},
    App{applications, "Firefox", "org.mozilla.firefox", "145.0", "14525.11.10", 60, Kit::classic, 6},
    App{applications, "Brave Browser", "com.brave.Browser", "142.1.84.135", "184.135", 70, Kit::chromium, 140},
    App{applications, "Arc", "company.thebrowser.Browser", "1.109.0", "67185", 60, Kit::classic, 60},
    App{applications, "Visual Studio Code", "com.microsoft.VSCode", "1.106.0", "1.106.0", 80, Kit::chromium, 0.2},
    App{applications, "Slack", "com.tinyspeck.slackmacgap", "4.47.65", "447065", 60, Kit::chromium, 0.1},
    App{applications, "Discord", "com.hnc.Discord", "0.0.364", "0.0.364", 40, Kit::chromium, 12},
    App{applications, "Spotify", "com.spotify.client", "1.2.76.298", "1.2.76.298", 40, Kit::chromium, 0.8},
    App{applications, "zoom.us", "us.zoom.xos", "6.6.5 (69480)", "6.6.5.69480", 45, Kit::chromium, 9},
    App{applications, "Docker", "com.docker.docker", "4.50.0", "209931", 110, Kit::chromium, 3},
    App{applications, "iTerm", "com.googlecode.iterm2", "3.6.5", "3.6.5", 25, Kit::classic, 0.1},
    App{applications, "Obsidian", "md.obsidian", "1.10.3", "1.10.3", 45, Kit::chromium, 4},
    App{applications, "Figma", "com.figma.Desktop", "125.10.8", "125.10.8", 40, Kit::chromium, 33},
    App{applications, "Postman", "com.postmanlabs.mac", "11.70.5", "11.70.5", 45, Kit::chromium, 75},
    App{applications, "Sublime Text", "com.sublimetext.4", "Build 4200", "4200", 15, Kit::classic, 160},
    App{applications, "GitHub Desktop", "com.github.GitHubClient", "3.5.4", "3.5.4", 35, Kit::chromium, 27},
    App{applications, "JetBrains Toolbox", "com.jetbrains.toolbox", "3.1", "3.1.0.62320", 20, Kit::chromium, 15},
    App{applications, "Blender", "org.blenderfoundation.blender", "4.5.4", "4.5.4 2025-10-28", 75, Kit::classic, 200},
    App{applications, "VLC", "org.videolan.vlc", "3.0.21", "3.0.21", 30, Kit::classic, 44},
    App{applications, "OBS", "com.obsproject.obs-studio", "32.0.2", "32.0.2", 40, Kit::classic, 380},
    App{applications, "Steam", "com.valvesoftware.steam", "4.0", "1761606420", 12, Kit::chromium, 290},
    App{applications, "Zed", "dev.zed.Zed", "0.212.4", "0.212.4", 25, Kit::classic, 5},
    App{applications, "Go", "dev.littleboard.Go", "2.1", "88", 6, Kit::sandboxed, 510},
    App{applications, "Super Edit", "com.acme.editor", "7.2", "7204", 18, Kit::classic, 18},
    App{applications, "Ledgerly", "com.ledgerly.mac", "5.0.3", "5033", 14, Kit::sandboxed, 64, true},
    App{applications, "Tidewatch", "net.tidewatch.Tidewatch", "2.8", "280", 9, Kit::classic, 1},
    App{applications, "墨迹笔记", "cn.moji.notes", "3.4.1", "341", 12, Kit::sandboxed, 130, true},
    App{applications, "Вокзал", "ru.vokzal.timetable", "1.9", "190", 7, Kit::classic, 240},
    App{applications, "دفتر", "net.daftar.mac", "2.0", "20", 8, Kit::sandboxed, -1},
    App{applications, "Café Radio", "fr.caferadio.player", "6.1", "61", 9, Kit::classic, 11},
    App{applications, "Nimbus Draw 3", "com.nimbusdraw.v3", "", "3187", 16, Kit::classic, 640, false, Identity::onlyBuild},
    App{applications, "Scratchpad", "", "0.4", "4", 2, Kit::none, -1, false, Identity::noIdentifier},
    App{applications, "Fieldnotes", "com.fieldnotes.app", "1.0", "1", 3, Kit::none, 700, false, Identity::damaged},
    App{applications, "Morvane", "app.morvane.Morvane", "1.0", "100", 12, Kit::none, 0.1},
    App{"/Applications/Python 3.13", "IDLE", "org.python.IDLE", "3.13.1", "3.13.1", 3, Kit::classic, 350},
    App{"/Applications/Python 3.13", "Python Launcher", "org.python.PythonLauncher", "3.13.1", "3.13.1", 2, Kit::none, -1},
    App{utilities, "XQuartz", "org.xquartz.X11", "2.8.5", "2.8.5", 10, Kit::classic, 450},
    App{utilities, "Serial Port Monitor", "io.portmon.serial", "1.3", "130", 4, Kit::classic, 520},
    App{"/Applications/Utilities/More", "Deep Drawer", "io.deepdrawer.app", "1.0", "1", 2, Kit::none, -1},
    App{ownApplications, "IntelliJ IDEA", "com.jetbrains.intellij", "2025.2.4", "IU-252.27397.103", 120, Kit::classic, 8},
    App{ownApplications, "Zed Preview", "dev.zed.Zed-Preview", "0.213.1", "0.213.1", 24, Kit::none, 100},
    App{"/Users/sam/Applications/Chrome Apps", "Board Minutes", "com.google.Chrome.app.kjgfgldnnfoeklkmfkjfagphfepbbdan", "142.0.7444.60", "7444.60", 2, Kit::none, 55},
};
// clang-format on

}  // namespace morvane::sample
