#include <algorithm>
#include <array>
#include <utility>

#include "mac.h"
#include "picture.h"
#include "property_list.h"

namespace morvane::sample {
namespace {

/// What the metadata store knows of a file.
enum class Trace {
    opened,    ///< a date of last use, later than the last change
    unopened,  ///< copied here and never used: only the date it was added
    unknown,   ///< no item at all
};

struct Piece {
    std::string_view path;  ///< under the home folder
    double megabytes;
    double days;
    Trace trace;
    bool staysLarge = false;
};

constexpr std::array pieces{
    // Films.
    Piece{"Movies/Lake District 2023.mov", 620, 540, Trace::opened, true},
    Piece{"Movies/Ruby’s first steps.mp4", 210, 800, Trace::unopened},
    Piece{"Movies/Talks/keynote-rehearsal.mkv", 160, 140, Trace::unknown},
    Piece{"Movies/Screen Recordings/bug-4711.mov", 135, 70, Trace::opened},
    Piece{"Movies/tiny clip.m4v", 12, 400, Trace::opened},
    Piece{"Movies/Sabbatical.fcpbundle/Original Media/clip-001.mov", 540, 460, Trace::unknown},
    Piece{"Movies/Sabbatical.fcpbundle/Render Files/render.mov", 60, 440, Trace::unknown},
    Piece{"Movies/Birthday.imovielibrary/Original Media/cake.mov", 60, 700, Trace::unknown},
    // Machines and images of disks.
    Piece{"Virtual Machines/Debian.utm/Data/disk-0.qcow2", 600, 210, Trace::unknown, true},
    Piece{"Virtual Machines/Windows 11.vmwarevm/Virtual Disk.vmdk", 180, 600, Trace::unknown},
    Piece{"Parallels/Ubuntu.pvm/harddisk.hdd/disk.hds", 130, 420, Trace::unknown},
    Piece{"Documents/Old Laptop.sparsebundle/bands/0", 90, 650, Trace::unknown},
    Piece{"Documents/Old Laptop.sparsebundle/bands/1", 90, 650, Trace::unknown},
    Piece{"Desktop/rescue-system.iso", 180, 480, Trace::unopened, true},
    Piece{"old-root-volume.img", 110, 610, Trace::opened},
    // Archives.
    Piece{"Documents/Backups/photos-2022.zip", 240, 720, Trace::unopened, true},
    Piece{"Documents/Backups/wiki-export.tar.gz", 130, 330, Trace::opened},
    Piece{"Documents/Backups/small.7z", 8, 330, Trace::opened},
    // Sound.
    Piece{"Music/Recordings/rehearsal 12.wav", 140, 390, Trace::opened},
    Piece{"Music/Recordings/field.flac", 40, 200, Trace::opened},
    Piece{"Music/Night Train.logicx/Media/Audio Files/take-1.aif", 110, 250, Trace::unknown},
    Piece{"Music/Demo.band/Media/riff.aif", 30, 900, Trace::unknown},
    // Documents.
    Piece{"Documents/Talks/All hands.key/Data/video.mov", 125, 380, Trace::unknown},
    Piece{"Documents/Talks/Flat deck.key", 20, 100, Trace::opened},
    Piece{"Documents/Scans/land register.pdf", 115, 560, Trace::unopened},
    Piece{"Documents/Letters/landlord.pages", 0.4, 90, Trace::opened},
    Piece{"Documents/Budget.numbers", 0.6, 12, Trace::opened},
    Piece{"Documents/Invoices/2026-03.pdf", 0.2, 200, Trace::opened},
    Piece{"Documents/Thesis/thesis.docx", 3, 1'100, Trace::opened},
    // Others: data of no kind, one from a camera with a wrong clock.
    Piece{"Documents/Datasets/measurements.parquet", 150, 280, Trace::opened},
    Piece{"Documents/Datasets/points.sqlite", 105, 40, Trace::opened},
    Piece{"Movies/from the future.mp4", 120, -40, Trace::unknown},
};

/// Documents and machines that are folders: the store knows them by the folder.
struct Bundle {
    std::string_view path;  ///< under the home folder
    double usedDays;        ///< below 0: an item without a date of last use
};

constexpr std::array bundles{
    Bundle{"Movies/Sabbatical.fcpbundle", 425},
    Bundle{"Movies/Birthday.imovielibrary", -1},
    Bundle{"Virtual Machines/Debian.utm", 120},
    Bundle{"Virtual Machines/Windows 11.vmwarevm", 580},
    Bundle{"Parallels/Ubuntu.pvm", 400},
    Bundle{"Documents/Old Laptop.sparsebundle", -1},
    Bundle{"Music/Night Train.logicx", 150},
    Bundle{"Music/Demo.band", 880},
    Bundle{"Documents/Talks/All hands.key", 370},
};

struct Download {
    std::string_view name;
    double megabytes;
    double days;
};

/// Installers of applications that are there, of others, and what else gathers.
constexpr std::array downloads{
    Download{"Firefox 124.0.1.dmg", 40, 410},
    Download{"Visual Studio Code 1.88.dmg", 45, 300},
    Download{"googlechrome-stable.dmg", 60, 220},
    Download{"zoom.pkg", 28, 95},
    Download{"Slack-4.47.65-macOS.dmg", 50, 20},
    Download{"Docker.dmg", 105, 130},
    Download{"Nimbus Draw 3 (Trial).dmg", 12, 640},
    Download{"7zip.dmg", 2, 350},
    Download{"go1.25.3.darwin-arm64.pkg", 30, 35},
    Download{"sub.dmg", 5, 160},
    Download{"TAPESTRY.DMG", 16, 395},
    Download{"Weaver Fonts.mpkg", 4, 395},
    Download{"Old Printer Driver.pkg/Contents/Archive.pax.gz", 6, 700},
    Download{"UniversalMac_26.1_Restore.ipsw", 220, 17},
    Download{"conference-assets.zip", 70, 60},
    Download{"bank statement.pdf", 0.3, 45},
    Download{"users-export (1).csv", 3, 20},
    Download{"users-export.csv", 3, 21},
    Download{"IMG_4471.heic", 2.6, 14},
    Download{"dune.epub", 4, 500},
    Download{"ubuntu-25.10-desktop.iso.crdownload", 24, 5},
    Download{"font-pack/Inter.ttc", 6, 110},
};

void planPiece(Mac& mac, const Piece& piece) {
    const std::string path = inHome(piece.path);
    const bool isLarge = piece.megabytes >= 100;
    mac.disk.file(path,
                  {.amount = piece.megabytes, .staysLarge = piece.staysLarge, .keepsSize = isLarge},
                  piece.days);
    const Moment modified = mac.disk.ago(path, piece.days);
    // What was only copied here was last written before, or while, it was added.
    const Moment added =
        std::min(piece.trace == Trace::unopened ? modified + 20 : modified - 90, mac.disk.now());
    mac.host.dates.push_back(
        {.path = path, .added = added, .created = std::min(modified - 90, mac.disk.now())});
    switch (piece.trace) {
        case Trace::opened:
            mac.host.metadata.push_back({.path = path,
                                         .lastUsed = modified + (mac.disk.now() - modified) / 5,
                                         .added = added});
            break;
        case Trace::unopened:
            mac.host.metadata.push_back({.path = path, .lastUsed = {}, .added = added});
            break;
        case Trace::unknown:
            break;
    }
}

void planBundle(Mac& mac, const Bundle& bundle) {
    const std::string path = inHome(bundle.path);
    const Moment added = mac.disk.ago("arrival of " + path, 900);
    MetadataItem item{.path = path, .lastUsed = {}, .added = added};
    if (bundle.usedDays >= 0) {
        item.lastUsed = mac.disk.ago("use of " + path, bundle.usedDays);
    }
    mac.host.metadata.push_back(std::move(item));
    mac.host.dates.push_back({.path = path, .added = added, .created = added});
}

void planPictures(Plan& disk) {
    const std::string photos = inHome("Pictures/Photos Library.photoslibrary/");
    disk.file(photos + "database/Photos.sqlite", {.amount = 24}, 0.6);
    for (int number = 0; number < 220; ++number) {
        Prng random = disk.random("photo " + std::to_string(number));
        const std::string name = random.uuid();
        disk.file(photos + "originals/" + name.substr(0, 1) + "/" + name + ".heic",
                  {.amount = 1.2, .atLeast = 0.01}, static_cast<double>(random.between(1, 900)));
    }
    for (int number = 1; number <= 14; ++number) {
        const std::string index = std::to_string(number);
        const double days = number * 17.0;
        const Moment taken = disk.ago("shot " + index, days);
        const std::string picture =
            encodePng(drawScene(128, 80, disk.random("scene " + index).next()));
        disk.text(inHome("Desktop/Screenshot " + dayText(taken) + " at 14.0" +
                         std::to_string(number % 10) + "." + std::to_string(10 + number) + ".png"),
                  picture, days);
    }
    disk.file(inHome("Pictures/Wallpapers/ridge.jpg"), {.amount = 4}, 300);
}

}  // namespace

void planUserFiles(Mac& mac) {
    Plan& disk = mac.disk;
    disk.folder(std::string(home), 0750);
    disk.folder(std::string(library), 0700);
    for (const Piece& piece : pieces) {
        planPiece(mac, piece);
    }
    for (const Bundle& bundle : bundles) {
        planBundle(mac, bundle);
    }
    for (const Download& download : downloads) {
        disk.file(inHome("Downloads/" + std::string(download.name)),
                  {.amount = download.megabytes, .keepsSize = download.megabytes >= 100},
                  download.days);
    }
    disk.text(inHome("Downloads/Interrupted Installer.dmg"), "", 33);
    disk.text(inHome("Downloads/.localized"), "", 700);
    disk.text(inHome("Desktop/.DS_Store"), std::string("\0\0\0\1Bud1", 8), 1);
    planPictures(disk);
    // A folder that only its flag makes a package, and two aliases.
    disk.file(inHome("Movies/Festival Cut/media.mov"), {.amount = 20}, 510);
    const std::string aliasHead("book\0\0\0\0mark", 12);
    disk.text(inHome("Desktop/Projects alias"), aliasHead, 260);
    disk.text(inHome("Documents/Thesis alias"), aliasHead, 900);
    mac.host.packages.push_back(inHome("Movies/Festival Cut"));
    mac.host.aliases = {inHome("Desktop/Projects alias"), inHome("Documents/Thesis alias")};
    mac.host.hidden = {inHome("Library"), "/bin", "/opt", "/private", "/sbin", "/usr", "/Volumes"};
    disk.file(inHome("Public/Drop Box/from-ada.zip"), {.amount = 3}, 140);
    disk.text(inHome(".zshrc"), "export EDITOR=zed\n", 80);
    disk.text(inHome(".gitconfig"), "[user]\n\tname = Sam Ferris\n", 300);
    disk.text(inHome(".ssh/config"), "Host *\n  AddKeysToAgent yes\n", 400, 0600);
    disk.file(inHome(".Trash/old notes.pages"), {.amount = 0.5}, 10);
}

}  // namespace morvane::sample
