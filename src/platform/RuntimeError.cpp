#include "platform/RuntimeError.h"

namespace zefta {

namespace {

const char* UsualText(ErrorNumber number) {
    switch (number) {
        case ErrorNumber::InvalidProcedureCall:
            return "Invalid procedure call or argument";
        case ErrorNumber::Overflow:
            return "Overflow";
        case ErrorNumber::OutOfMemory:
            return "Out of memory";
        case ErrorNumber::SubscriptOutOfRange:
            return "Subscript out of range";
        case ErrorNumber::DivisionByZero:
            return "Division by zero";
        case ErrorNumber::TypeMismatch:
            return "Type mismatch";
        case ErrorNumber::BadFileName:
            return "Bad file name or number";
        case ErrorNumber::FileNotFound:
            return "File not found";
        case ErrorNumber::DeviceIoError:
            return "Device I/O error";
        case ErrorNumber::FileAlreadyExists:
            return "File already exists";
        case ErrorNumber::DiskFull:
            return "Disk full";
        case ErrorNumber::InputPastEnd:
            return "Input past end of file";
        case ErrorNumber::PermissionDenied:
            return "Permission denied";
        case ErrorNumber::PathFileAccess:
            return "Path/File access error";
        case ErrorNumber::PathNotFound:
            return "Path not found";
    }
    return "Unknown error";
}

}  // namespace

RuntimeError::RuntimeError(ErrorNumber number) : number_(number), text_(UsualText(number)) {}

RuntimeError::RuntimeError(ErrorNumber number, const std::string& subject)
    : number_(number), text_(std::string(UsualText(number)) + ": " + subject) {}

}  // namespace zefta
