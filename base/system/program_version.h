#pragma once

namespace chengheng {

/// "0.1.0"
const char* programVersion();

}  // namespace chengheng
