#include "core/FileKind.h"

#include "core/Strings.h"

namespace zefta {

namespace {

bool EndsIn(std::string_view name, std::string_view kind) {
    return name.size() >= kind.size() &&
           EqualsIgnoringAsciiCase(name.substr(name.size() - kind.size()), kind);
}

}  // namespace

bool IsCompressedFile(std::string_view name) {
    return IsMPEGplusFile(name) || IsOggFile(name) || IsMP3File(name);
}

bool IsWaveFile(std::string_view name) {
    return EndsIn(name, "wav");
}
bool IsMP3File(std::string_view name) {
    return EndsIn(name, "mp3");
}
bool IsOggFile(std::string_view name) {
    return EndsIn(name, "ogg");
}
bool IsMPEGplusFile(std::string_view name) {
    return EndsIn(name, "mp+") || EndsIn(name, "mpc");
}

}  // namespace zefta
