#include "platform/OpenDocument.h"
#include "platform/posix/ChildProcess.h"
#include "platform/posix/PosixProcesses.h"

namespace zefta {

bool OpenDocument(const std::string& address) {
    ChildSetup opener;
    opener.program = FindProgram("xdg-open");
    if (opener.program.empty()) return false;
    opener.arguments = {address};
    // What it has to say about the address is for the person at the terminal.
    opener.streams = ChildStreams::Ours;
    return StartDetached(opener);
}

}  // namespace zefta
