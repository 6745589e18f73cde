#include <array>
#include <memory>

#include "core/BlockCopy.h"
#include "core/Boxes.h"
#include "core/Numbers.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

constexpr std::int32_t Copied = 0;
constexpr std::int32_t CannotOpenSource = 1;
constexpr std::int32_t CannotCreateDestination = 2;

}  // namespace

std::int32_t WaveFile::CopyWave(const std::string& source, const std::string& destination) {
    const auto from = app_.files.OpenReadOnly(source);
    if (!from) return CannotOpenSource;
    // Creating the destination would empty the source.
    if (app_.files.FollowLinks(source) == app_.files.FollowLinks(destination)) return CannotCreateDestination;
    const auto to = app_.files.OpenCreate(destination);
    if (!to) return CannotCreateDestination;
    const std::int32_t size = from->Size();
    Raise(MinStatus, 0);
    Raise(Status, 0);
    Raise(MaxStatus, size);

    const std::int16_t blocks = ToI16(std::int64_t{size / WaveBlockSize});
    std::array<std::byte, WaveBlockSize> block;
    for (std::int32_t i = 1; i <= blocks + 1; ++i) {
        const auto piece = std::span<const std::byte>(block).first(from->Read(block));
        to->Write(piece);
        const bool isLast = i > blocks;
        if (!isLast && piece.size() < block.size()) {
            // The piece stands twice in the copy then. Kept: what is short was not whole before either.
            to->Write(piece);
            ShowPlainBox(app_, "Read Error!");
            break;
        }
        Raise(Status, isLast ? size : i * WaveBlockSize);
        app_.desktop.ServeEvents();
    }
    Raise(Status, size);
    return Copied;
}

}  // namespace zefta
