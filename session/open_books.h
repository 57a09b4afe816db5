#pragma once

namespace chengheng {

/// Makes the open set of books the one that g_pDB works on, with its connection made again
/// where it was lost; false when there is none or it does not answer.
bool selectOpenBooks();

}  // namespace chengheng
