#pragma once

#include "tool/tool.h"

namespace chengheng {

/// Has chbooks-pdf, which lies beside this program, carry out the same command line, and gives
/// its exit code. Says so when it is not there.
ExitCode runPdfProgram(Tool& tool);

}  // namespace chengheng
