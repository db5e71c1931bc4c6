#pragma once

#include <filesystem>
#include <optional>

#include "platform/folder/descriptor.h"
#include "platform/folder/effect_log.h"

namespace morvane::folder {

// A file of this machine that effects are written to as they happen, one JSON object a line, for a
// program that watches from outside.
class EffectFile {
public:
    // Empties the file, or makes it. Nothing when it cannot be written.
    [[nodiscard]] static std::optional<EffectFile> open(const std::filesystem::path& file);

    // The whole line is in the file when this returns, or, with the disk full, none of it may be.
    // Any thread; lines of two threads do not mix.
    void write(const Effect& effect) const;

private:
    explicit EffectFile(Descriptor file) : file_(std::move(file)) {}

    Descriptor file_;
};

}  // namespace morvane::folder
