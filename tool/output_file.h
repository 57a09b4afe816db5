#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "base/system/output_target.h"
#include "tool/tool.h"

namespace chengheng {

/// The file that a command writes, and whether it may replace another.
struct OutputFile {
    std::string path;
    bool isForced = false;

    Overwrite overwrite() const { return isForced ? Overwrite::replace : Overwrite::refuse; }
};

/// Says why the file cannot be written where something stands already, before any work is done.
std::optional<ExitCode> refuseTarget(Tool& tool, const OutputFile& file);

/// Where the words go while the file does: not into it.
std::ostream& wordsBeside(Tool& tool, const OutputFile& file);

}  // namespace chengheng
