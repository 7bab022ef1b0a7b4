// Preloaded into a program (LD_PRELOAD) whose listening sockets must be reachable from this
// machine only: a bind to the wildcard address becomes a bind to the loopback address. The
// VNC platform that serves the window without a display listens on every interface and has
// no setting for the address.

#include <arpa/inet.h>
#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstring>

namespace {

using BindFunction = int (*)(int, const sockaddr *, socklen_t);

BindFunction realBind()
{
    static const auto real = reinterpret_cast<BindFunction>(dlsym(RTLD_NEXT, "bind"));
    return real;
}

} // namespace

extern "C" int bind(int fd, const sockaddr *address, socklen_t length)
{
    if (address && address->sa_family == AF_INET && length >= sizeof(sockaddr_in)) {
        sockaddr_in v4;
        std::memcpy(&v4, address, sizeof v4);
        if (v4.sin_addr.s_addr == htonl(INADDR_ANY)) {
            v4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
            return realBind()(fd, reinterpret_cast<const sockaddr *>(&v4), sizeof v4);
        }
    } else if (address && address->sa_family == AF_INET6 && length >= sizeof(sockaddr_in6)) {
        sockaddr_in6 v6;
        std::memcpy(&v6, address, sizeof v6);
        if (IN6_IS_ADDR_UNSPECIFIED(&v6.sin6_addr)) {
            // A dual-stack socket on "::" takes IPv4 too: the IPv4-mapped loopback address
            // keeps viewers that connect to 127.0.0.1 working and no other host.
            inet_pton(AF_INET6, "::ffff:127.0.0.1", &v6.sin6_addr);
            return realBind()(fd, reinterpret_cast<const sockaddr *>(&v6), sizeof v6);
        }
    }
    return realBind()(fd, address, length);
}
