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

/// How much of what was written an overlay may still keep, in bytes.
struct OverlayBudget {
    std::int64_t left = std::int64_t{64} * 1024 * 1024;
};

/// What a file of the overlay would hold: the bytes of the file on disk, with pages of their own where they
/// were written over. Holds no file of the system open while nobody reads or writes.
class OverlayContent {
  public:
    using Opener = std::function<std::unique_ptr<BinaryFile>()>;

    /// Empty.
    OverlayContent() = default;
    /// As what `openBase` opens; RuntimeError 70 when it opens nothing.
    explicit OverlayContent(Opener openBase);

    std::int64_t Size() const { return size_; }
    /// Changes so far.
    std::int64_t Revision() const { return revision_; }
    /// Too much was written for keeping it; only that and how much is known. To read it is RuntimeError 57.
    bool IsForgotten() const { return isForgotten_; }

    std::size_t Read(std::int64_t position, std::span<std::byte> into);
    void Write(std::int64_t position, std::span<const std::byte> bytes);
    void SetSize(std::int64_t size);

    /// Nobody reads or writes for now. Keeps what was written as far as the budget goes.
    void Rest(OverlayBudget& budget);

  private:
    static constexpr std::int64_t PageSize = 4096;
    using Page = std::array<std::byte, PageSize>;

    const Page* FindPage(std::int64_t number) const;
    Page& PageToWrite(std::int64_t number);
    void ReadBase(std::int64_t position, std::span<std::byte> into);

    Opener openBase_;
    std::unique_ptr<BinaryFile> base_;
    /// Bytes of the base that still show through.
    std::int64_t baseSize_ = 0;
    std::int64_t size_ = 0;
    std::int64_t revision_ = 0;
    bool isForgotten_ = false;
    /// Bytes of pages that the budget has given.
    std::int64_t granted_ = 0;
    std::map<std::int64_t, std::unique_ptr<Page>> pages_;
};

}  // namespace zefta
