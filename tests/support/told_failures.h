#pragma once

#include <gmock/gmock.h>

#include "base/values/status.h"

namespace chengheng {

/// The words that tell the operator of a call that the FaultyEngine let fail, on a file or a
/// server.
inline auto tellsOf(Failure failure) {
    const char* const matter =
        failure == Failure::full ? "磁盘空间不足" : "中断,本次操作没有完成,已保存的数据不受影响。";
    return testing::AllOf(testing::HasSubstr(matter), testing::EndsWith("\n详细信息:made to fail"));
}

}  // namespace chengheng
