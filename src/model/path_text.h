#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace morvane {

// The text of a path, as it stands in ids, maps, stored data and answers: the path itself when it
// is UTF-8 and no "%" in it stands before two hexadecimal digits that spell 25 or a value from 80
// up; otherwise every byte outside valid UTF-8 comes as "%XX" in capitals and every "%" as "%25".
// No two paths share a text.
[[nodiscard]] std::string pathText(const std::filesystem::path& path);

// The inverse of pathText.
[[nodiscard]] std::filesystem::path pathFromText(std::string_view text);

// The last component of a path as it is shown: itself where it is UTF-8, else as `pathText` has it.
[[nodiscard]] std::string nameText(const std::filesystem::path& name);

// The length of the valid UTF-8 sequence at the start of `bytes` (1 to 4), or 0 where there is
// none. Surrogates, overlong forms and values beyond U+10FFFF are not valid.
[[nodiscard]] std::size_t utf8SequenceLength(std::string_view bytes);
[[nodiscard]] bool isUTF8(std::string_view bytes);

// The resolved form of an absolute path: "." and ".." segments and doubled slashes taken out by the
// text alone, no trailing slash but for "/" itself.
[[nodiscard]] std::filesystem::path standardised(const std::filesystem::path& path);

// Whether `path` is `folder` or lies under it, by the text of both standardised paths; "Foo" does
// not cover "Foobar".
[[nodiscard]] bool isInside(const std::filesystem::path& path, const std::filesystem::path& folder);

// `path` with a leading `home` replaced by "~", as text.
[[nodiscard]] std::string abbreviatedWithTilde(const std::filesystem::path& path,
                                               const std::filesystem::path& home);

}  // namespace morvane
