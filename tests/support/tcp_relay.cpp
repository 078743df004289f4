#include "support/tcp_relay.hpp"

#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace tolvex::testing {

namespace {

int listen_on_loopback()
{
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0 ||
        listen(listener, 8) != 0)
        throw std::runtime_error("the relay cannot listen");
    return listener;
}

int port_of(int listener)
{
    sockaddr_in address{};
    socklen_t length = sizeof(address);
    getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length);
    return ntohs(address.sin_port);
}

// A socket connected to the server; -1 when it cannot be reached.
int connect_to(const std::string& host, const std::string& port)
{
    addrinfo hints{}, *found = nullptr;
    hints.ai_socktype = SOCK_STREAM;
    if (getaddrinfo(host.c_str(), port.c_str(), &hints, &found) != 0) return -1;
    const int server = socket(found->ai_family, SOCK_STREAM, 0);
    const bool connected = connect(server, found->ai_addr, found->ai_addrlen) == 0;
    freeaddrinfo(found);
    if (connected) return server;
    close(server);
    return -1;
}

// Passes on what one side sends; false when it has ended.
bool pass_on(int from, int to)
{
    char bytes[8192];
    const ssize_t count = recv(from, bytes, sizeof(bytes), 0);
    return count > 0 && send(to, bytes, static_cast<std::size_t>(count), MSG_NOSIGNAL) == count;
}

} // namespace

TcpRelay::TcpRelay(const std::string& host, const std::string& port)
    : host_(host), server_port_(port), listener_(listen_on_loopback()), port_(port_of(listener_)),
      acceptor_([this] { accept_connections(); })
{}

TcpRelay::~TcpRelay()
{
    ending_ = true;
    shutdown(listener_, SHUT_RDWR);
    acceptor_.join();
    cut();
    for (std::thread& relay : relays_) relay.join();
    close(listener_);
}

void TcpRelay::cut()
{
    const std::lock_guard lock(mutex_);
    for (const int socket : open_) shutdown(socket, SHUT_RDWR);
}

void TcpRelay::accept_connections()
{
    while (!ending_)
        if (const int client = accept(listener_, nullptr, nullptr); client >= 0)
            relays_.emplace_back([this, client] { relay(client); });
}

void TcpRelay::relay(int client)
{
    const int server = connect_to(host_, server_port_);
    {
        const std::lock_guard lock(mutex_);
        open_.insert(open_.end(), {client, server});
    }
    pollfd sides[] = {{client, POLLIN, 0}, {server, POLLIN, 0}};
    bool open = server >= 0;
    while (open && poll(sides, 2, -1) > 0) {
        if (sides[0].revents) open = pass_on(client, server);
        if (open && sides[1].revents) open = pass_on(server, client);
    }
    const std::lock_guard lock(mutex_);
    std::erase(open_, client);
    std::erase(open_, server);
    close(client);
    close(server);
}

} // namespace tolvex::testing
