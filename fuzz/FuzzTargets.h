#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zefta::fuzz {

/// A promise that the program did not keep.
class FuzzFailure : public std::logic_error {
  public:
    using std::logic_error::logic_error;
};

/// Fails with the text unless the promise holds.
inline void Require(bool holds, const char* promise) {
    if (!holds) throw FuzzFailure(promise);
}

/// One reader or writer under hostile input.
struct FuzzTarget {
    std::string_view name;
    /// Any input is fine and has to come back; FuzzFailure when the program breaks a promise.
    void (*run)(std::string_view input);
};

/// All of them: readers take the input as a file; writers take it as a length byte, that many bytes of field
/// values separated by "|", and the file.
std::span<const FuzzTarget> FuzzTargets();

/// Null for an unknown name.
const FuzzTarget* FindFuzzTarget(std::string_view name);

// The bodies.

void FuzzID3v1(std::string_view input);
void FuzzLyrics3(std::string_view input);
void FuzzID3v2(std::string_view input);
void FuzzAPE2(std::string_view input);
void FuzzMP3File(std::string_view input);
void FuzzOGGFile(std::string_view input);
void FuzzMPEGplusFile(std::string_view input);
void FuzzWaveInfo(std::string_view input);
void FuzzScanWave(std::string_view input);
void FuzzSetID3v1(std::string_view input);
void FuzzSetID3v2(std::string_view input);
void FuzzSetAPE2(std::string_view input);
void FuzzSetOggComments(std::string_view input);
void FuzzProcessWave(std::string_view input);
void FuzzProfileFile(std::string_view input);

}  // namespace zefta::fuzz
