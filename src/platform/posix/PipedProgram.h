#pragma once

#include <array>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace zefta {

/// A program whose output is read while it runs. It has no input, its errors go nowhere, and it is ended when
/// this object goes or the running program dies.
class PipedProgram {
  public:
    /// `program`: full path. One that can't be started has no output and does not succeed.
    PipedProgram(std::string program, std::vector<std::string> arguments);
    ~PipedProgram();
    PipedProgram(const PipedProgram&) = delete;
    PipedProgram& operator=(const PipedProgram&) = delete;

    enum class News { Bytes, Nothing, End };

    /// Waits for at most 15 milliseconds. The piece is there until the next call.
    News Read(std::string_view& piece);

    /// Behind the end: whether it ended by itself with status 0. Waits for that.
    bool HasSucceeded();

  private:
    void CloseOutput();

    pid_t child_ = -1;
    int output_ = -1;
    std::array<char, 65536> buffer_;
};

}  // namespace zefta
