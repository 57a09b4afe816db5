#pragma once

#include "base/values/status.h"

namespace chengheng {

/// Makes the open set of books the one that g_pDB works on, with its connection made again
/// where it was lost; not done when there is none or it does not answer.
Status selectOpenBooks();

}  // namespace chengheng
