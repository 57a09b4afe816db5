#include "tool/output_file.h"

#include <ostream>

#include "sheets/sheet_failure.h"

namespace chengheng {

std::optional<ExitCode> refuseTarget(Tool& tool, const OutputFile& file) {
    OutputTarget target;
    const Status status = findTarget(file.path, file.overwrite(), target);
    if (status) return std::nullopt;
    tool.err << whileWriting(status, file.path).text() << '\n';
    const bool isThere = status.failure == Failure::refused || status.failure == Failure::foreign;
    return isThere ? ExitCode::targetExists : ExitCode::failed;
}

std::ostream& wordsBeside(Tool& tool, const OutputFile& file) {
    return isStandardOutput(file.path) ? tool.err : tool.out;
}

}  // namespace chengheng
