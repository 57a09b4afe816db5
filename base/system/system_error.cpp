#include "base/system/system_error.h"

#include <cerrno>
#include <system_error>

namespace chengheng {

Failure failureOfSystemError(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return Failure::missing;
        case EACCES:
        case EPERM:
        case EROFS:
            return Failure::readOnly;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return Failure::full;
        case EAGAIN:
        case EBUSY:
            return Failure::busy;
        case EEXIST:
            return Failure::refused;
        default:
            return Failure::lost;
    }
}

Status systemFailure(int error, const std::string& path) {
    return Status::of(failureOfSystemError(error),
                      path + ": " + std::system_category().message(error));
}

}  // namespace chengheng
