#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>
#include <variant>

namespace morvane {

// Why something could not be looked at or done.
struct Failure {
    enum class Kind : std::uint8_t {
        notFound,    // it is not there
        notAllowed,  // the system refused
        refused,     // Morvane refused, because the act could have touched something else
        failed       // anything else
    };
    Kind kind = Kind::failed;
    int code = 0;  // the system's errno, 0 where no errno says it
    std::filesystem::path path;

    bool operator==(const Failure&) const = default;
};

// The failure that an errno stands for.
[[nodiscard]] Failure failureFromErrno(int code, const std::filesystem::path& path);

// One sentence for the user, without the path: "Permission denied."
[[nodiscard]] std::string describe(const Failure& failure);

// A value, or why there is none.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : held_(std::move(value)) {}            // NOLINT(google-explicit-constructor)
    Result(Failure failure) : held_(std::move(failure)) {}  // NOLINT(google-explicit-constructor)

    [[nodiscard]] bool ok() const { return held_.index() == 0; }
    [[nodiscard]] explicit operator bool() const { return ok(); }
    [[nodiscard]] const T& operator*() const& { return std::get<0>(held_); }
    [[nodiscard]] T& operator*() & { return std::get<0>(held_); }
    [[nodiscard]] T&& operator*() && { return std::get<0>(std::move(held_)); }
    [[nodiscard]] const T* operator->() const { return &std::get<0>(held_); }
    [[nodiscard]] T* operator->() { return &std::get<0>(held_); }
    [[nodiscard]] const Failure& failure() const { return std::get<1>(held_); }

private:
    std::variant<T, Failure> held_;
};

}  // namespace morvane
