#pragma once

#include <chrono>

namespace chengheng {

enum class SocketUse { reading, writing };

/// Waits until a socket can be read or written without blocking, for at most that long.
/// False when the time ran out.
bool waitForSocket(int socket, SocketUse use, std::chrono::milliseconds limit);

}  // namespace chengheng
