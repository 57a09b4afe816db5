#include "data/engines/postgres/socket_wait.h"

#ifdef _WIN32
#include <winsock2.h>
#else
#include <poll.h>
#endif

namespace chengheng {

bool waitForSocket(int socket, SocketUse use, std::chrono::milliseconds limit) {
    const short events = use == SocketUse::reading ? POLLIN : POLLOUT;
#ifdef _WIN32
    WSAPOLLFD watched{static_cast<SOCKET>(socket), events, 0};
    return WSAPoll(&watched, 1, static_cast<int>(limit.count())) > 0;
#else
    pollfd watched{socket, events, 0};
    return poll(&watched, 1, static_cast<int>(limit.count())) > 0;
#endif
}

}  // namespace chengheng
