#include "support/ipp_printer.hpp"

#include "support/files.hpp"
#include "support/shell.hpp"

#include <csignal>
#include <functional>
#include <netinet/in.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tolvex::testing {

namespace {

using namespace std::chrono_literals;

class Socket
{
public:
    Socket() : descriptor_(socket(AF_INET, SOCK_STREAM, 0)) {}
    ~Socket() { close(descriptor_); }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    int get() const { return descriptor_; }

private:
    const int descriptor_;
};

sockaddr_in on_loopback(int port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    return address;
}

int free_port()
{
    const Socket socket;
    sockaddr_in address = on_loopback(0);
    socklen_t size = sizeof address;
    if (bind(socket.get(), reinterpret_cast<sockaddr*>(&address), size) != 0 ||
        getsockname(socket.get(), reinterpret_cast<sockaddr*>(&address), &size) != 0)
        throw std::runtime_error("there is no free port");
    return ntohs(address.sin_port);
}

bool answers(int port)
{
    const Socket socket;
    const sockaddr_in address = on_loopback(port);
    return connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

void wait_until(const char* what, const std::function<bool()>& holds)
{
    for (int tries = 0; tries < 200; ++tries) {
        if (holds()) return;
        std::this_thread::sleep_for(50ms);
    }
    throw std::runtime_error(what);
}

// Announcing itself on the network takes the printer a message bus, on which nobody need answer.
constexpr auto bus_settings =
    "<busconfig><type>session</type><listen>unix:path=bus</listen>"
    "<policy context='default'><allow send_destination='*'/><allow eavesdrop='true'/>"
    "<allow own='*'/></policy>"
    "</busconfig>";

// Runs for each document: its number, title, copies and bytes come to the folder.
constexpr auto keeper = "#!/bin/sh\n"
                        "cd \"$(dirname \"$0\")\"\n"
                        "cp \"$1\" \"$IPP_JOB_ID.pdf\"\n"
                        "printf %s \"$IPP_COPIES\" > \"$IPP_JOB_ID.copies\"\n"
                        "printf %s \"$IPP_JOB_NAME\" > title\n"
                        "mv title \"$IPP_JOB_ID.title\"\n";

} // namespace

IppPrinter::Program::Program(const std::string& order)
{
    std::string shell = "/bin/sh", option = "-c", line = "exec " + order;
    char* arguments[] = {shell.data(), option.data(), line.data(), nullptr};
    if (posix_spawn(&process_, shell.c_str(), nullptr, nullptr, arguments, environ) != 0)
        throw std::runtime_error("cannot run " + order);
}

IppPrinter::Program::~Program()
{
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
}

IppPrinter::IppPrinter(const std::string& format) : port_(free_port())
{
    const auto& folder = folder_.path();
    write_file(folder / "bus.conf", bus_settings);
    write_file(folder / "keep", keeper);
    std::filesystem::permissions(folder / "keep", std::filesystem::perms::owner_all);
    const std::string there = "env --chdir=" + quoted(folder), bus = folder / "bus";
    bus_ = std::make_unique<Program>(there + " dbus-daemon --nofork --config-file=bus.conf 2>/dev/null");
    wait_until("dbus-daemon does not start: is it installed?", [&] { return std::filesystem::exists(bus); });
    printer_ =
        std::make_unique<Program>(there + " DBUS_SYSTEM_BUS_ADDRESS=unix:path=" + quoted(bus) +
                                  " /usr/sbin/ippeveprinter -r off -n localhost -p " + std::to_string(port_) +
                                  " -f " + quoted(format) + " -d . -c ./keep Caja 2>/dev/null");
    wait_until("ippeveprinter does not start: is cups-ipp-utils installed?", [&] { return answers(port_); });
}

Text IppPrinter::address() const
{
    return to_text("ipp://localhost:" + std::to_string(port_) + "/ipp/print");
}

IppPrinter::Job IppPrinter::job(int number) const
{
    const auto file = [&](const char* ending) { return folder_.path() / (std::to_string(number) + ending); };
    wait_until("the job does not reach the printer", [&] { return std::filesystem::exists(file(".title")); });
    return {read_file(file(".title")), read_file(file(".copies")), read_file(file(".pdf"))};
}

bool IppPrinter::has_no_job() const { return !std::filesystem::exists(folder_.path() / "1.pdf"); }

} // namespace tolvex::testing
