#include <array>

#include "mac.h"
#include "property_list.h"

namespace morvane::sample {
namespace {

struct Row {
    std::string_view path;
    double megabytes;
    double days;
};

/// The folders that are private to the user and need his consent, and what the system keeps.
constexpr std::array homeRows{
    Row{"Library/Group Containers/group.net.tidewatch/shared.db", 5, 1},
    Row{"Library/Group Containers/UBF8T346G9.Office/cache.db", 12, 300},
    Row{"Library/Mobile Documents/com~apple~CloudDocs/Notes/plan.pages", 3, 70},
    Row{"Library/CloudStorage/Dropbox/Shared/logo.pdf", 6, 130},
    Row{"Library/Mail/V10/MailData/Envelope Index.db", 26, 0.3},
    Row{"Library/Mail/V10/2F1B/INBOX.mbox/Messages/1.emlx", 0.2, 9},
    Row{"Library/Messages/chat.db", 22, 0.2},
    Row{"Library/Messages/Attachments/0a/10/IMG_2.heic", 9, 80},
    Row{"Library/Safari/History.db", 5, 0.1},
    Row{"Library/Calendars/Calendar.sqlite", 2, 1},
    Row{"Library/Reminders/Container_v1/Stores/data.sqlite", 1, 2},
    Row{"Library/HomeKit/core.sqlite", 0.6, 5},
    Row{"Library/Biome/streams/public/app.db", 3, 0.5},
    Row{"Library/Application Support/AddressBook/AddressBook-v22.db", 2, 12},
    Row{"Library/Application Support/CallHistoryDB/CallHistory.db", 0.4, 3},
    Row{"Library/Application Support/com.apple.TCC/TCC.db", 0.2, 6},
    Row{"Library/Keychains/login.keychain-db", 0.4, 2},
    Row{"Library/Fonts/Inter.ttc", 6, 400},
    Row{"Library/Containers/com.apple.mail/Data/Library/Caches/mail.db", 3, 0.3},
};

constexpr std::array systemRows{
    Row{"/Library/Application Support/com.apple.TCC/TCC.db", 0.2, 6},
    Row{"/Library/Application Support/Adobe/ARM/update.data", 5, 500},
    Row{"/Library/Application Support/GarageBand/Instrument Library/piano.aif", 60, 420},
    Row{"/Library/Audio/Apple Loops/Apple/loops.aif", 34, 420},
    Row{"/Library/Caches/com.apple.iconservices.store/icons.data", 8, 2},
    Row{"/Library/Developer/CommandLineTools/usr/bin/clang", 44, 60},
    Row{"/Library/Developer/CommandLineTools/SDKs/MacOSX26.sdk/SDKSettings.data", 2, 60},
    Row{"/Library/Developer/CoreSimulator/Images/images.data", 1, 60},
    Row{"/Library/Fonts/Arial Unicode.ttf", 14, 700},
    Row{"/Library/Logs/DiagnosticReports/kernel.panic", 0.6, 44},
    Row{"/Library/Printers/hp/Utilities/driver.bundle/driver", 18, 600},
    Row{"/Users/Shared/Relocated Items/Configuration/etc-backup.tgz", 3, 60},
    Row{"/Users/Shared/Family Photos.zip", 28, 340},
    Row{"/opt/homebrew/Cellar/node/25.1.0/bin/node", 50, 12},
    Row{"/opt/homebrew/Cellar/openssl@3/3.6.0/lib/libcrypto.3.dylib", 9, 75},
    Row{"/opt/homebrew/Cellar/python@3.13/3.13.9/Frameworks/Python.framework/Python", 20, 30},
    Row{"/opt/homebrew/Cellar/postgresql@17/17.6/bin/postgres", 18, 50},
    Row{"/opt/homebrew/Caskroom/blender/4.5.4/blender.metadata", 0.1, 28},
    Row{"/opt/homebrew/var/postgresql@17/base/16384/2619", 14, 1},
    Row{"/System/Library/CoreServices/Finder.app/Contents/MacOS/Finder", 6, 60},
    Row{"/System/Library/Fonts/Helvetica.ttc", 3, 60},
    Row{"/private/var/log/install.log", 3, 4},
    Row{"/private/var/vm/sleepimage", 30, 0.5},
};

struct Link {
    std::string_view path;
    std::string_view target;
};

constexpr std::array links{
    Link{"/etc", "private/etc"},
    Link{"/tmp", "private/tmp"},
    Link{"/var", "private/var"},
    Link{"/Volumes/Macintosh HD", "/"},
    Link{"/opt/homebrew/bin/node", "../Cellar/node/25.1.0/bin/node"},
    Link{"/opt/homebrew/opt/postgresql@17", "../Cellar/postgresql@17/17.6"},
    Link{"/opt/homebrew/opt/openssl@3", "../Cellar/openssl@3/3.6.0"},
    Link{"/Users/sam/Library/Developer/Xcode/UserData/Latest", "/Applications/Xcode.app"},
    Link{"/Library/Developer/CommandLineTools/SDKs/MacOSX.sdk", "MacOSX26.sdk"},
};

}  // namespace

void planSystemFolders(Mac& mac) {
    Plan& disk = mac.disk;
    for (const Row& row : homeRows) {
        disk.file(inHome(row.path), {.amount = row.megabytes, .atLeast = 0.004}, row.days);
    }
    for (const Row& row : systemRows) {
        disk.file(std::string(row.path), {.amount = row.megabytes, .atLeast = 0.004}, row.days);
    }
    for (const Link& entry : links) {
        disk.link(std::string(entry.path), std::string(entry.target), 60);
    }
    PropertyList bookmarks = PropertyList::dictionary();
    bookmarks.text("Title", "").number("WebBookmarkFileVersion", 1);
    bookmarks.child("Children", PropertyList::array());
    disk.list(inLibrary("Safari/Bookmarks.plist"), bookmarks, ListForm::binary, 2);
    PropertyList daemon = PropertyList::dictionary();
    daemon.text("Label", "com.docker.vmnetd")
        .text("Program", "/Library/PrivilegedHelperTools/vmnetd");
    disk.list("/Library/LaunchDaemons/com.docker.vmnetd.plist", daemon, ListForm::xml, 210);
    PropertyList system = PropertyList::dictionary();
    system.text("ProductName", "macOS")
        .text("ProductVersion", "26.6")
        .text("ProductBuildVersion", "25G70");
    disk.list("/System/Library/CoreServices/SystemVersion.plist", system, ListForm::xml, 60);
    disk.text("/private/etc/hosts", "127.0.0.1\tlocalhost\n", 700);
    disk.folderOfAge("/private/tmp", 1);
    disk.folderOfAge("/sbin", 60);
    disk.text("/Users/.localized", "", 760);
    disk.folderOfAge("/Users/Guest", 760);
    disk.text("/opt/local/README", "left by another package manager\n", 650);
}

}  // namespace morvane::sample
