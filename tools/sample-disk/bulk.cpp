#include "bulk.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>

#include "descriptor.h"
#include "fit_sizes.h"
#include "prng.h"

namespace morvane::sample {
namespace {

/// One step down: folders, or files on the last step, named "{stem}{number}{ending}".
struct Level {
    std::string_view stem;
    std::string_view ending;
    int fewest;
    int most;
};

struct Region {
    std::string_view base;
    int percent;
    std::array<Level, 4> levels;  ///< the first repeats until the region's share is used up
};

constexpr std::array regions{
    Region{"/Users/sam/Projects",
           30,
           {Level{"monorepo-", "/node_modules", 1, 1}, Level{"package-", "", 80, 240},
            Level{"lib-", "", 1, 5}, Level{"module-", ".js", 3, 30}}},
    Region{"/Users/sam/Library/Caches",
           16,
           {Level{"org.benchmark.reader", "", 1, 1}, Level{"fsCachedData-", "", 4, 16},
            Level{"shard-", "", 2, 12}, Level{"", ".cache", 8, 60}}},
    Region{"/Users/sam/Pictures",
           16,
           {Level{"Import ", "", 1, 1}, Level{"Reise-", "", 4, 14}, Level{"día-", "", 2, 8},
            Level{"IMG_", ".HEIC", 20, 120}}},
    Region{"/Applications",
           14,
           {Level{"Bench Suite ", "", 1, 1}, Level{"Tool ", ".app/Contents/Resources", 4, 10},
            Level{"lang-", ".lproj", 8, 30}, Level{"Strings", ".strings", 3, 9}}},
    Region{"/opt/homebrew/Cellar",
           14,
           {Level{"formula-", "", 1, 1}, Level{"1.", "", 1, 3}, Level{"share-", "", 3, 9},
            Level{"page", ".1", 6, 40}}},
    Region{"/Library/Application Support",
           10,
           {Level{"Sound Library ", "", 1, 1}, Level{"Bank ", "", 3, 10}, Level{"Kit ", "", 3, 10},
            Level{"Sample ", ".aif", 6, 40}}},
};

class Grower {
public:
    Grower(const Region& region, const BulkTree& tree, std::int64_t entries)
        : region_(region),
          now_(tree.now),
          fullPerMille_(tree.bytes / inBlocks(1) * 1'000 / std::max<std::int64_t>(1, tree.entries)),
          random_(tree.seed, region.base),
          left_(entries) {}

    std::optional<std::string> run(int root) {
        const Descriptor base(openFolder(root, std::string(region_.base.substr(1))));
        if (!base.isOpen()) {
            return problem();
        }
        for (int round = 1; left_ > 0; ++round) {
            if (!folder(base.number(), 0, round)) {
                return problem();
            }
        }
        return std::nullopt;
    }

private:
    static int openFolder(int parent, const std::string& name) {
        return ::openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    }

    [[nodiscard]] std::optional<std::string> problem() const {
        return std::string(region_.base) + ": " + std::strerror(errno);
    }

    static std::string numbered(const Level& level, int number) {
        std::string digits = std::to_string(number);
        digits.insert(0, digits.size() < 4 ? 4 - digits.size() : 0, '0');
        return std::string(level.stem) + digits;
    }

    bool stamp(int parent, const std::string& name) {
        const Moment moment = now_ - random_.between(0, 700 * secondsADay);
        const std::array times{timespec{.tv_sec = moment, .tv_nsec = 0},
                               timespec{.tv_sec = moment, .tv_nsec = 0}};
        return ::utimensat(parent, name.c_str(), times.data(), AT_SYMLINK_NOFOLLOW) == 0;
    }

    /// Makes the folder of this level, and further ones named in its ending, and fills the last.
    bool folder(int parent, std::size_t depth, int number) {
        const Level& level = region_.levels[depth];
        return chain(parent, numbered(level, number) + std::string(level.ending), depth);
    }

    bool chain(int parent, const std::string& path, std::size_t depth) {
        if (left_ == 0) {
            return true;
        }
        const std::size_t slash = path.find('/');
        const std::string name = path.substr(0, slash);
        if (::mkdirat(parent, name.c_str(), 0755) != 0) {
            return false;
        }
        --left_;
        const Descriptor made(openFolder(parent, name));
        if (!made.isOpen()) {
            return false;
        }
        const bool filled = slash == std::string::npos
                                ? fill(made.number(), depth + 1)
                                : chain(made.number(), path.substr(slash + 1), depth);
        return filled && stamp(parent, name);
    }

    bool fill(int parent, std::size_t depth) {
        const Level& level = region_.levels[depth];
        const std::int64_t count = random_.between(level.fewest, level.most);
        for (int number = 1; number <= count && left_ > 0; ++number) {
            const bool isLast = depth + 1 == region_.levels.size();
            if (!(isLast ? file(parent, numbered(level, number) + std::string(level.ending))
                         : folder(parent, depth, number))) {
                return false;
            }
        }
        return true;
    }

    bool file(int parent, const std::string& name) {
        --left_;
        const bool isFull = random_.between(0, 999) < fullPerMille_;
        const std::int64_t bytes = random_.between(1, 4'096);
        if (isFull) {
            static constexpr std::array<char, 4'096> zeros{};
            const Descriptor made(
                ::openat(parent, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
            if (!made.isOpen() ||
                ::write(made.number(), zeros.data(), static_cast<std::size_t>(bytes)) != bytes) {
                return false;
            }
        } else if (::mknodat(parent, name.c_str(), S_IFREG | 0644, 0) != 0) {
            return false;
        }
        return stamp(parent, name);
    }

    const Region& region_;
    Moment now_;
    std::int64_t fullPerMille_;
    Prng random_;
    std::int64_t left_;
};

}  // namespace

void planBulkPlaces(Plan& plan) {
    for (const Region& region : regions) {
        plan.folder(std::string(region.base));
    }
}

std::optional<std::string> growBulk(int root, const BulkTree& tree) {
    if (tree.entries == 0) {
        return std::nullopt;
    }
    std::int64_t left = tree.entries;
    for (const Region& region : regions) {
        const bool isLast = &region == &regions.back();
        const std::int64_t share = isLast ? left : tree.entries * region.percent / 100;
        if (auto problem = Grower(region, tree, share).run(root)) {
            return problem;
        }
        left -= share;
    }
    return std::nullopt;
}

}  // namespace morvane::sample
