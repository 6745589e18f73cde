#include "disc/CddbServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace zefta::test {

namespace {

constexpr int MillisecondsBetweenLooks = 20;

bool HasNews(int descriptor) {
    pollfd news = {descriptor, POLLIN, 0};
    return poll(&news, 1, MillisecondsBetweenLooks) > 0;
}

void SendLine(int connection, const std::string& line) {
    const std::string bytes = line + "\r\n";
    send(connection, bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

}  // namespace

CddbServer::CddbServer() {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    socklen_t size = sizeof(address);
    if (bind(listener_, reinterpret_cast<sockaddr*>(&address), size) != 0 || listen(listener_, 5) != 0 ||
        getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        throw std::runtime_error("no port on the loopback");
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { Serve(); });
}

CddbServer::~CddbServer() {
    ends_ = true;
    thread_.join();
    close(listener_);
}

std::vector<std::string> CddbServer::Commands() const {
    const std::lock_guard lock(mutex_);
    return commands_;
}

void CddbServer::Serve() {
    while (!ends_) {
        if (!HasNews(listener_)) continue;
        const int connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0) continue;
        ServeConnection(connection);
        close(connection);
    }
}

void CddbServer::ServeConnection(int connection) {
    if (!greeting.empty()) SendLine(connection, greeting);
    std::string received;
    char buffer[512];
    while (!ends_) {
        if (!HasNews(connection)) continue;
        const ssize_t count = recv(connection, buffer, sizeof(buffer), 0);
        if (count <= 0) return;
        received.append(buffer, static_cast<std::size_t>(count));
        for (std::size_t end = received.find('\n'); end != std::string::npos; end = received.find('\n')) {
            const std::string command = received.substr(0, received.find_first_of("\r\n"));
            received.erase(0, end + 1);
            if (!Answer(connection, command)) return;
        }
    }
}

/// False when it hangs up.
bool CddbServer::Answer(int connection, const std::string& command) {
    {
        const std::lock_guard lock(mutex_);
        commands_.push_back(command);
    }
    if (!dropsAt.empty() && command.starts_with(dropsAt)) return false;
    for (const auto& [start, lines] : answers) {
        if (!command.starts_with(start)) continue;
        for (const std::string& line : lines) SendLine(connection, line);
    }
    return !command.starts_with("quit");
}

}  // namespace zefta::test
