#include "base/system/program_version.h"

namespace chengheng {

const char* programVersion() { return CHENGHENG_VERSION; }

}  // namespace chengheng
