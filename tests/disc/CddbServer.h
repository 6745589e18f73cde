#pragma once

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace zefta::test {

/// A database of discs on the loopback: one connection after the other, the lines of the protocol as they
/// are told.
class CddbServer {
  public:
    CddbServer();
    ~CddbServer();
    CddbServer(const CddbServer&) = delete;
    CddbServer& operator=(const CddbServer&) = delete;

    int Port() const { return port_; }

    /// What it says to a connection, and to each command, told by how it begins ("cddb query"). Lines without
    /// their ends; a command that has no answer is not answered at all. To be set before it is asked.
    std::string greeting = "201 test CDDBP server ready";
    std::map<std::string, std::vector<std::string>> answers = {
        {"cddb hello", {"200 Hello and welcome"}},
        {"proto", {"201 OK, protocol version now: 6"}},
        {"quit", {"230 bye"}},
    };
    /// The command at which it hangs up.
    std::string dropsAt;

    /// All that it was told so far.
    std::vector<std::string> Commands() const;

  private:
    void Serve();
    void ServeConnection(int connection);
    bool Answer(int connection, const std::string& command);

    int listener_ = -1;
    int port_ = 0;
    std::atomic<bool> ends_ = false;
    mutable std::mutex mutex_;
    std::vector<std::string> commands_;
    std::thread thread_;
};

}  // namespace zefta::test
