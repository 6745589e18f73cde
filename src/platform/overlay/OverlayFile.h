#pragma once

#include <memory>

#include "platform/BinaryFile.h"
#include "platform/overlay/OverlayContent.h"

namespace zefta {

enum class OverlayAccess { Read, Change };

/// An open file of the overlay.
class OverlayFile : public BinaryFile {
  public:
    using BinaryFile::Write;

    OverlayFile(std::shared_ptr<OverlayContent> content, std::shared_ptr<OverlayBudget> budget,
                OverlayAccess access, bool isReadOnly);
    ~OverlayFile() override;

    std::size_t Read(std::span<std::byte> into) override;
    void Write(std::span<const std::byte> bytes) override;
    bool Seek(std::int32_t distance, SeekFrom from) override;
    std::int32_t Position() const override;
    std::int32_t Size() const override;
    bool IsReadOnly() const override { return isReadOnly_; }
    void SetEnd() override;
    void Flush() override {}

  private:
    void RefuseUnlessForChange() const;

    std::shared_ptr<OverlayContent> content_;
    std::shared_ptr<OverlayBudget> budget_;
    OverlayAccess access_;
    bool isReadOnly_;
    std::int64_t position_ = 0;
};

}  // namespace zefta
