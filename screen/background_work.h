#pragma once

#include <functional>

namespace chengheng {

/// Does a work in another thread and waits for it, while windows go on painting and answering
/// the system; keys and clicks wait until it is done. What the work throws is thrown here.
void runBesidePainting(const std::function<void()>& work);

}  // namespace chengheng
