// A relay to a TCP server that can be cut, as when the server or the network goes away.
#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tolvex::testing {

class TcpRelay
{
public:
    // Listens on a free port of 127.0.0.1. Throws std::runtime_error.
    TcpRelay(const std::string& host, const std::string& port);
    ~TcpRelay();
    TcpRelay(const TcpRelay&) = delete;
    TcpRelay& operator=(const TcpRelay&) = delete;

    int port() const { return port_; }
    // Ends every connection; new ones are relayed again.
    void cut();

private:
    void accept_connections();
    void relay(int client);

    const std::string host_, server_port_;
    int listener_ = -1;
    int port_ = 0;
    std::atomic<bool> ending_ = false;
    std::mutex mutex_;
    std::vector<int> open_;
    std::vector<std::thread> relays_;
    std::thread acceptor_;
};

} // namespace tolvex::testing
