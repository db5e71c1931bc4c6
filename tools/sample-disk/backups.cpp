#include <array>
#include <utility>

#include "mac.h"
#include "property_list.h"

namespace morvane::sample {
namespace {

/// Whether a backup says what it is of.
enum class Paper { full, displayNameOnly, dateOnly, interrupted };

struct Backup {
    std::string_view folder;  ///< "$" stands for sixteen digits of the seed's, "#" for forty
    std::string_view device;
    std::string_view product;
    std::string_view productType;
    double megabytes;
    double days;
    Paper paper;
    ListForm form;
};

constexpr std::array backups{
    Backup{"00008140-$", "Sam’s iPhone", "iPhone 16 Pro", "iPhone17,1", 190, 24, Paper::full,
           ListForm::xml},
    Backup{"00008103-$", "Sam’s iPad", "iPad Pro (11-inch) (3rd generation)", "iPad13,4", 110, 260,
           Paper::full, ListForm::binary},
    Backup{"#", "Old phone (小さい)", "iPhone 8", "iPhone10,1", 80, 690, Paper::displayNameOnly,
           ListForm::binary},
    Backup{"00008140-$-20250214-093011", "", "", "iPhone17,1", 60, 640, Paper::dateOnly,
           ListForm::xml},
    Backup{"00008120-$", "", "", "", 22, 130, Paper::interrupted, ListForm::xml},
};

std::string folderName(Plan& disk, const Backup& backup) {
    std::string name(backup.folder);
    Prng random = disk.random("device " + name);
    if (name == "#") {
        return random.lowerHex(40);
    }
    return name.replace(name.find('$'), 1, random.upperHex(16));
}

PropertyList informationOf(Plan& disk, const Backup& backup) {
    const std::string target = folderName(disk, backup).substr(0, 25);
    PropertyList list = PropertyList::dictionary();
    list.text("Build Version", "23B85");
    if (backup.paper == Paper::full) {
        list.text("Device Name", backup.device);
    }
    if (backup.paper != Paper::dateOnly) {
        list.text("Display Name", backup.device).text("Product Name", backup.product);
    }
    list.text("GUID", disk.random("guid " + target).upperHex(32));
    PropertyList installed = PropertyList::array();
    PropertyList applications = PropertyList::dictionary();
    for (const std::string_view identifier : {"com.ledgerly.phone", "net.tidewatch.phone"}) {
        installed.append(identifier);
        PropertyList application = PropertyList::dictionary();
        application.data("PlaceholderIcon", disk.random(identifier).lowerHex(256));
        applications.child(identifier, std::move(application));
    }
    list.child("Applications", std::move(applications));
    list.child("Installed Applications", std::move(installed));
    list.date("Last Backup Date", disk.ago("backup of " + target, backup.days));
    list.text("Product Type", backup.productType).text("Product Version", "26.1");
    list.text("Serial Number", disk.random("serial " + target).upperHex(10));
    list.text("Target Identifier", target).text("Target Type", "Device");
    list.text("Unique Identifier", target).text("iTunes Version", "12.13.9");
    list.child("iTunes Settings", PropertyList::dictionary());
    return list;
}

void planPapers(Plan& disk, const Backup& backup, const std::string& folder) {
    const bool isWhole = backup.paper != Paper::interrupted;
    if (isWhole) {
        disk.list(folder + "Info.plist", informationOf(disk, backup), backup.form, backup.days);
    }
    const Moment date = disk.ago("end of " + folder, backup.days);
    PropertyList manifest = PropertyList::dictionary();
    manifest.data("BackupKeyBag", disk.random("keys of " + folder).lowerHex(128))
        .date("Date", date);
    manifest.flag("IsEncrypted", backup.paper == Paper::full).text("Version", "10.0");
    manifest.flag("WasPasscodeSet", true).child("Applications", PropertyList::dictionary());
    disk.list(folder + "Manifest.plist", manifest, ListForm::binary, backup.days);
    PropertyList status = PropertyList::dictionary();
    status.text("BackupState", "new").date("Date", date).flag("IsFullBackup", isWhole);
    status.text("SnapshotState", isWhole ? "finished" : "uploading").text("Version", "3.3");
    status.text("UUID", disk.random("status of " + folder).uuid());
    disk.list(folder + "Status.plist", status, ListForm::binary, backup.days);
}

}  // namespace

void planBackups(Mac& mac) {
    Plan& disk = mac.disk;
    for (const Backup& backup : backups) {
        const std::string folder =
            inLibrary("Application Support/MobileSync/Backup/" + folderName(disk, backup) + "/");
        planPapers(disk, backup, folder);
        disk.file(folder + "Manifest.db", {.amount = backup.megabytes * 0.04}, backup.days);
        constexpr int files = 48;
        for (int number = 0; number < files; ++number) {
            const std::string name = disk.random(folder + std::to_string(number)).lowerHex(40);
            disk.file(folder + name.substr(0, 2) + "/" + name,
                      {.amount = backup.megabytes * 0.96 / files, .atLeast = 0.001}, backup.days);
        }
    }
    disk.text(inLibrary("Application Support/MobileSync/Backup/stray-note.txt"), "x", 300);
}

}  // namespace morvane::sample
