#include "platform/posix/AgentSocket.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <utility>

#include "platform/Paths.h"

namespace zefta {

namespace {

constexpr std::string_view CloseRequest = "close";

class Handle {
  public:
    explicit Handle(int descriptor) : descriptor_(descriptor) {}
    ~Handle() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    Handle(Handle&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    Handle& operator=(Handle&&) = delete;

    bool IsOpen() const { return descriptor_ >= 0; }
    int Number() const { return descriptor_; }

  private:
    int descriptor_;
};

/// Whether it is a folder itself, no link to one, that is ours and closed to everyone else.
bool IsPrivateFolder(const std::string& path) {
    struct stat status = {};
    constexpr mode_t OfOthers = S_IRWXG | S_IRWXO;
    return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
           (status.st_mode & OfOthers) == 0;
}

bool IsOurFolder(const std::string& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid();
}

/// Room for the name and the NUL behind it.
bool FitsSocketName(const std::string& path) {
    return path.size() < sizeof(sockaddr_un::sun_path);
}

/// In /tmp anybody can make a folder of that name first; one that is not private serves for nothing.
std::string FolderInTmp() {
    const std::string folder = "/tmp/kestrin-zeftaworks-" + std::to_string(geteuid());
    mkdir(folder.c_str(), S_IRWXU);
    return IsPrivateFolder(folder) ? folder : std::string();
}

sockaddr_un AddressOf(const std::string& path) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::copy_n(path.begin(), std::min(path.size(), sizeof(address.sun_path) - 1), address.sun_path);
    return address;
}

Handle NewSocket() {
    return Handle(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

bool Connect(const Handle& socket, const std::string& path) {
    const sockaddr_un address = AddressOf(path);
    return !path.empty() && socket.IsOpen() &&
           connect(socket.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
}

bool Bind(const Handle& socket, const std::string& path) {
    const sockaddr_un address = AddressOf(path);
    return socket.IsOpen() &&
           bind(socket.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
}

/// Holds the right to the socket's name for as long as it lives: of two agents that start at the same time
/// one gets it, and it goes with the process whatever ends that.
class NameLock {
  public:
    explicit NameLock(const std::string& path)
        : file_(
              open((path + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR)) {}

    bool TryFor(std::chrono::milliseconds time) {
        using Clock = std::chrono::steady_clock;
        constexpr std::chrono::milliseconds Pause(20);
        const auto end = Clock::now() + time;
        while (!Try()) {
            if (errno != EWOULDBLOCK || Clock::now() >= end) return false;
            std::this_thread::sleep_for(Pause);
        }
        return true;
    }

  private:
    bool Try() const { return flock(file_.Number(), LOCK_EX | LOCK_NB) == 0; }

    Handle file_;
};

class SocketServer : public AgentServer {
  public:
    SocketServer(std::string path, NameLock lock, Handle socket)
        : path_(std::move(path)), lock_(std::move(lock)), socket_(std::move(socket)) {}
    ~SocketServer() override { unlink(path_.c_str()); }

    int Descriptor() const override { return socket_.Number(); }

    bool TakeCloseRequest() override {
        bool asked = false;
        char bytes[16];
        for (;;) {
            const ssize_t count = recv(socket_.Number(), bytes, sizeof(bytes), 0);
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return asked;
            if (std::string_view(bytes, static_cast<std::size_t>(count)) == CloseRequest) asked = true;
        }
    }

  private:
    std::string path_;
    NameLock lock_;
    Handle socket_;
};

}  // namespace

std::string AgentSocketPath(const std::string& title) {
    const char* variable = std::getenv("XDG_RUNTIME_DIR");
    const std::string runtime = variable != nullptr ? variable : "";
    if (IsAbsolutePath(runtime) && IsOurFolder(runtime) && FitsSocketName(JoinPath(runtime, title)))
        return JoinPath(runtime, title);
    const std::string folder = FolderInTmp();
    const std::string path = folder.empty() ? std::string() : JoinPath(folder, title);
    return FitsSocketName(path) ? path : std::string();
}

bool AgentSocket::IsServed(const std::string& title) const {
    return Connect(NewSocket(), AgentSocketPath(title));
}

void AgentSocket::SendClose(const std::string& title) {
    const Handle socket = NewSocket();
    if (!Connect(socket, AgentSocketPath(title))) return;
    // Refused when the agent takes no requests any more and many wait for it: one more would not help.
    const ssize_t sent = send(socket.Number(), CloseRequest.data(), CloseRequest.size(), MSG_NOSIGNAL);
    static_cast<void>(sent);
}

std::unique_ptr<AgentServer> ServeAgent(const std::string& title, int milliseconds) {
    const std::string path = AgentSocketPath(title);
    if (path.empty()) return nullptr;
    NameLock lock(path);
    if (!lock.TryFor(std::chrono::milliseconds(milliseconds))) return nullptr;
    // Left by an agent that was killed: whoever holds the lock serves the name alone.
    unlink(path.c_str());
    Handle socket = NewSocket();
    if (!Bind(socket, path)) return nullptr;
    return std::make_unique<SocketServer>(path, std::move(lock), std::move(socket));
}

}  // namespace zefta
