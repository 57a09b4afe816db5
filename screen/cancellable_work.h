#pragma once

#include <QString>
#include <cstddef>
#include <functional>

class QWidget;

namespace chengheng {

/// Told by a work how much of it is done; false: it is to be given up.
using WorkTold = std::function<bool(std::size_t done, std::size_t total)>;

/// Does a work in another thread and waits for it. When that takes more than a moment, a box with a
/// bar and 取消 is up; everything else waits for the end of the work. What it throws is thrown
/// here.
void runCancellable(const QString& text, QWidget* parent,
                    const std::function<void(const WorkTold& told)>& work);

}  // namespace chengheng
