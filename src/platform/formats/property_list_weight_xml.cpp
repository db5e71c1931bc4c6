// The XML form, gone through tag by tag. Whatever could be taken one way here and another way by
// the library (quotes that do not close, tags inside tags) is refused, so that what is weighed is
// what gets parsed.

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "platform/formats/dictionary_work.h"
#include "platform/formats/property_list_leaf.h"
#include "platform/formats/property_list_weight.h"

namespace morvane {

namespace {

constexpr std::size_t none = std::string_view::npos;
constexpr std::array<std::string_view, 5> containers{"plist", "dict", "array", "true", "false"};
constexpr std::array<std::string_view, 6> leaves{"key",  "string", "integer",
                                                 "real", "date",   "data"};

template <std::size_t size>
bool isOneOf(std::string_view name, const std::array<std::string_view, size>& names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

class XMLWeight {
public:
    explicit XMLWeight(std::string_view bytes) : bytes_(bytes) {}

    bool isWithinLimits() {
        if (bytes_.find('\0') != none) return false;
        while ((at_ = bytes_.find('<', at_)) != none) {
            const std::string_view rest = bytes_.substr(at_);
            if (!(rest.starts_with("<!--")        ? skip(4, "-->")
                  : rest.starts_with("<![CDATA[") ? inLeaf() && skip(9, "]]>")
                  : rest.starts_with("<?")        ? skipPlain(2, "?>")
                  : rest.starts_with("<!DOCTYPE") ? skipPlain(9, ">")
                  : rest.starts_with("</")        ? close()
                                                  : open())) {
                return false;
            }
        }
        return open_.empty() && objects_ > 0;
    }

private:
    struct Element {
        std::string_view name;
        std::size_t start = 0;  // of what it holds
        DictionaryWork work = {};
    };

    [[nodiscard]] bool inLeaf() const {
        return !open_.empty() && isOneOf(open_.back().name, leaves);
    }

    // Moves past the next `end`, which stands `from` bytes further on at the earliest.
    bool skip(std::size_t from, std::string_view end) {
        const std::size_t found = bytes_.find(end, at_ + from);
        if (found == none) return false;
        passed_ = bytes_.substr(at_ + from, found - at_ - from);
        at_ = found + end.size();
        return true;
    }

    // The same for markup that must hold no markup of its own and no quote that stays open.
    bool skipPlain(std::size_t from, std::string_view end) {
        return skip(from, end) && passed_.find_first_of("<[") == none &&
               std::count(passed_.begin(), passed_.end(), '"') % 2 == 0;
    }

    [[nodiscard]] std::string_view passedName() const {
        return passed_.substr(0, passed_.find_first_of(" \t\r\n/"));
    }

    bool close() {
        const std::size_t end = at_;
        if (!skipPlain(2, ">") || open_.empty() || open_.back().name != passedName()) return false;
        const Element closed = std::move(open_.back());
        open_.pop_back();
        const std::string_view content = bytes_.substr(closed.start, end - closed.start);
        if (!isSoundLeaf(closed.name, content)) return false;
        if (closed.name == "key" && !open_.empty()) work_ += open_.back().work.add(content);
        return work_ <= PropertyListLimits::comparisons;
    }

    bool open() {
        if (inLeaf() || !skipPlain(1, ">")) return false;
        const std::string_view name = passedName();
        const bool isLeaf = isOneOf(name, leaves);
        if (!isLeaf && !isOneOf(name, containers)) return false;
        if (name != "plist" && ++objects_ > PropertyListLimits::objects) return false;
        if (passed_.ends_with('/')) return true;
        // The list itself and one leaf stand beside the levels.
        if (open_.size() > PropertyListLimits::levels + (isLeaf ? 1 : 0)) return false;
        open_.push_back({name, at_});
        return true;
    }

    std::string_view bytes_;
    std::size_t at_ = 0;
    std::size_t objects_ = 0;
    std::size_t work_ = 0;
    std::string_view passed_;  // between the start and the end of the markup last moved past
    std::vector<Element> open_;
};

}  // namespace

bool weighXMLPropertyList(std::string_view bytes) {
    return XMLWeight(bytes).isWithinLimits();
}

}  // namespace morvane
