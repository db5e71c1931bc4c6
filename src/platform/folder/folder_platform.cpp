#include "platform/folder/folder_platform.h"

#include <cassert>

#include "platform/folder/desktop_notifications.h"
#include "platform/folder/desktop_workspace.h"
#include "platform/folder/disk_access.h"
#include "platform/folder/disk_notifications.h"
#include "platform/folder/host_file.h"
#include "platform/formats/json_fields.h"

namespace morvane::folder {

namespace {

// The disk's place as tools are told of it: absolute, and the text that was given otherwise.
std::filesystem::path absolutePlace(const std::filesystem::path& disk) {
    std::error_code error;
    std::filesystem::path place = std::filesystem::absolute(disk, error);
    if (!place.has_filename()) place = place.parent_path();
    return place;
}

}  // namespace

std::variant<std::unique_ptr<FolderPlatform>, std::string> FolderPlatform::open(
    const std::filesystem::path& disk) {
    const std::filesystem::path place = absolutePlace(disk);
    Result<DiskRoot> root = DiskRoot::open(place / "root");
    if (!root.ok()) return "no folder \"root\" in " + disk.native();
    HostReading reading = readHostFile(place / "host.json", *root);
    if (const auto* error = std::get_if<HostError>(&reading)) return error->line;
    return std::unique_ptr<FolderPlatform>(
        new FolderPlatform(std::move(*root), place, std::get<Host>(std::move(reading))));
}

FolderPlatform::FolderPlatform(DiskRoot root, const std::filesystem::path& disk, Host host)
    : root_(std::move(root)),
      host_(std::move(host)),
      files_(root_, host_),
      processes_(root_, disk, effects_),
      remover_(root_, host_),
      metadata_(host_),
      volume_(host_, root_),
      resources_(host_) {
    defaults_.push_back(openDefaults());
}

FolderPlatform::~FolderPlatform() {
    processes_.endAll();
}

void FolderPlatform::start(Executor& executor, Surroundings surroundings) {
    assert(!workspace_);
    workspace_ = std::make_unique<DesktopWorkspace>(host_, root_, effects_, executor, surroundings);
    if (surroundings.desktop == nullptr) {
        notifications_ = std::make_unique<DiskNotifications>(host_, effects_, executor);
    } else {
        notifications_ = std::make_unique<DesktopNotifications>(*surroundings.desktop);
        effects_.handTo([](const Effect&) {});
    }
    updates_.emplace(host_, effects_);
}

Platform FolderPlatform::platform() {
    assert(workspace_);
    const auto current = host();
    return {.files = files_,
            .processes = processes_,
            .workspace = *workspace_,
            .metadata = metadata_,
            .notifications = *notifications_,
            .volume = volume_,
            .bundle = current->bundle,
            .region = current->region,
            .home = current->home,
            .resources = resources_};
}

std::unique_ptr<FileDefaults> FolderPlatform::openDefaults() const {
    const auto current = host();
    const std::string name = current->bundle.identifier.value_or("Morvane") + ".plist";
    return std::make_unique<FileDefaults>(root_, current->home / "Library/Preferences" / name);
}

void FolderPlatform::reopenDefaults() {
    defaults_.back()->stop();
    defaults_.back()->flush();
    defaults_.push_back(openDefaults());
}

std::optional<std::string> FolderPlatform::replaceHost(const nlohmann::json& keys) {
    HostReading reading = replaceKeys(*host(), keys);
    if (const auto* error = std::get_if<HostError>(&reading)) return error->line;
    host_.replace(std::get<Host>(std::move(reading)));
    if (workspace_ && find(keys, "runningApplications") != nullptr) {
        workspace_->applicationsReplaced();
    }
    if (updates_ && find(keys, "updates") != nullptr) updates_->canCheckReplaced();
    return std::nullopt;
}

Probe FolderPlatform::Files::probe(const std::filesystem::path& path) const {
    if (const auto answered = answeredProbe(*host_.current())) return *answered;
    return DiskFileSystem::probe(path);
}

}  // namespace morvane::folder
