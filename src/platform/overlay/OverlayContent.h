#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>

#include "platform/BinaryFile.h"

namespace zefta {

/// What a file of the overlay would hold: the bytes of the file on disk, with pages of their own where they
/// were written over.
class OverlayContent {
  public:
    using Opener = std::function<std::unique_ptr<BinaryFile>()>;

    /// Empty.
    OverlayContent() = default;
    /// As what `base` opens; empty when that is null.
    explicit OverlayContent(const Opener& base);

    std::int64_t Size() const { return size_; }
    /// Changes so far.
    std::int64_t Revision() const { return revision_; }

    std::size_t Read(std::int64_t position, std::span<std::byte> into);
    void Write(std::int64_t position, std::span<const std::byte> bytes);
    void SetSize(std::int64_t size);

    /// Gives back the memory of a file of which too much was written for keeping it all: what is told of it
    /// is that it would have been written. To read it then is RuntimeError 57.
    void ForgetWhatIsLarge();

  private:
    static constexpr std::int64_t PageSize = 65536;
    using Page = std::array<std::byte, PageSize>;

    const Page* FindPage(std::int64_t number) const;
    Page& PageToWrite(std::int64_t number);
    void ReadBase(std::int64_t position, std::span<std::byte> into);

    std::unique_ptr<BinaryFile> base_;
    /// Bytes of the base that still show through.
    std::int64_t baseSize_ = 0;
    std::int64_t size_ = 0;
    std::int64_t revision_ = 0;
    bool isForgotten_ = false;
    std::map<std::int64_t, std::unique_ptr<Page>> pages_;
};

}  // namespace zefta
