#include <fcntl.h>
#include <unistd.h>

#include "platform/StandardStreams.h"

namespace zefta {

void FillStandardStreams() {
    // The lowest free number is given out first, so the loop ends at the first one above the three.
    int descriptor = open("/dev/null", O_RDWR);
    while (descriptor >= 0 && descriptor <= STDERR_FILENO) descriptor = open("/dev/null", O_RDWR);
    if (descriptor > STDERR_FILENO) close(descriptor);
}

}  // namespace zefta
