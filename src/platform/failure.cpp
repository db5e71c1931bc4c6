#include "platform/failure.h"

#include <cerrno>
#include <system_error>

namespace morvane {

Failure failureFromErrno(int code, const std::filesystem::path& path) {
    Failure::Kind kind = Failure::Kind::failed;
    if (code == ENOENT || code == ENOTDIR || code == ELOOP) kind = Failure::Kind::notFound;
    if (code == EPERM || code == EACCES) kind = Failure::Kind::notAllowed;
    return {kind, code, path};
}

namespace {

// Why Morvane would not act, by the errno that the act would have met.
std::string refusalWords(int code) {
    switch (code) {
        case EXDEV:
        case EBUSY:
            return "Another volume is involved.";
        case EINVAL:
        case ENOSYS:
        case ENOTSUP:
            return "This volume cannot move items safely.";
        case ENOTDIR:
        case EPERM:
            return "The Trash cannot be used.";
        default:
            return "The item is not where it was found any more.";
    }
}

}  // namespace

std::string describe(const Failure& failure) {
    switch (failure.kind) {
        case Failure::Kind::notFound:
            return "The item is no longer there.";
        case Failure::Kind::notAllowed:
            return "macOS does not allow it.";
        case Failure::Kind::refused:
            return refusalWords(failure.code);
        case Failure::Kind::failed:
            break;
    }
    if (failure.code == 0) return "Something went wrong.";
    return std::generic_category().message(failure.code) + ".";
}

}  // namespace morvane
