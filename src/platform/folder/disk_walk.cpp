#include <mutex>

#include "platform/folder/disk_file_system.h"
#include "platform/folder/file_status.h"
#include "platform/folder/mount_points.h"
#include "platform/folder/size_lane.h"
#include "platform/folder/visit_lane.h"

namespace morvane::folder {

bool DiskFileSystem::walk(const std::filesystem::path& path, const WalkOptions& options,
                          FolderVisit& root, const StopToken& token) const {
    HostMarks marks;
    marks.addLists(disk_, *host_.current());
    Result<OpenFolder> opened = openFolder(path, marks);
    if (!opened.ok()) return false;
    const auto mounts = mountsBelow(opened->folder.get());
    if (mounts) {
        for (const std::string& mount : *mounts) {
            marks.add(opened->canonicalPath + mount, Mark::mount);
        }
    }

    const FolderIdentity identity = identityOf(opened->folder.get());
    WalkNode top(path.native(), root, identity);
    std::function<void()> walkFolders;
    WalkCrew crew(threads_, [&walkFolders] { walkFolders(); });
    walkFolders = [&] {
        VisitLane lane(crew, token, options, !mounts);
        crew.work([&lane](WalkFrame folder) { lane.run(std::move(folder)); });
    };
    crew.offer({.folder = std::move(opened->folder),
                .identity = identity,
                .node = &top,
                .marks = marks.find(opened->canonicalPath)});
    walkFolders();
    return true;
}

TreeSize DiskFileSystem::treeSize(const std::filesystem::path& path, bool withDates,
                                  const StopToken& token) const {
    HostMarks marks;
    marks.addLists(disk_, *host_.current());
    Result<OpenFolder> opened = openFolder(path, marks);
    if (!opened.ok()) return {.isUnreadable = true};

    std::mutex mutex;
    TreeSize sum;
    {
        std::function<void()> addUp;
        WalkCrew crew(threads_, [&addUp] { addUp(); });
        addUp = [&] {
            SizeLane lane(crew, token, withDates);
            crew.work([&lane](WalkFrame folder) { lane.run(std::move(folder)); });
            const std::lock_guard lock(mutex);
            sum.bytes += lane.size().bytes;
            sum.isUnreadable = sum.isUnreadable || lane.size().isUnreadable;
            if (!sum.newest || (lane.size().newest && *lane.size().newest > *sum.newest)) {
                sum.newest = lane.size().newest;
            }
        };
        crew.offer({.folder = std::move(opened->folder),
                    .isTop = true,
                    .marks = marks.find(opened->canonicalPath)});
        addUp();
    }
    return sum;
}

}  // namespace morvane::folder
