#pragma once

#include <exception>
#include <string>

namespace zefta {

/// The numbers under which run-time failures are known to users and scripts (message 1000 shows them).
enum class ErrorNumber : int {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    BadFileName = 52,
    FileNotFound = 53,
    DeviceIoError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEnd = 62,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
};

/// A failure that no routine on the way is expected to handle: it ends the step at hand, and the process
/// when nobody traps it. Expected outcomes (a missing tag, a file of another kind) are never told this way.
class RuntimeError : public std::exception {
  public:
    /// The text is the usual one of the number.
    explicit RuntimeError(ErrorNumber number);

    /// The text names what the failure was about: "Permission denied: /music/a.mp3".
    RuntimeError(ErrorNumber number, const std::string& subject);

    int Number() const noexcept { return static_cast<int>(number_); }
    ErrorNumber Kind() const noexcept { return number_; }
    const std::string& Text() const noexcept { return text_; }
    const char* what() const noexcept override { return text_.c_str(); }

  private:
    ErrorNumber number_;
    std::string text_;
};

}  // namespace zefta
