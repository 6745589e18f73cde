#include "platform/overlay/OverlayFile.h"

#include <utility>

#include "platform/CheckedPosition.h"
#include "platform/RuntimeError.h"

namespace zefta {

OverlayFile::OverlayFile(std::shared_ptr<OverlayContent> content, std::shared_ptr<OverlayBudget> budget,
                         OverlayAccess access, bool isReadOnly)
    : content_(std::move(content)), budget_(std::move(budget)), access_(access), isReadOnly_(isReadOnly) {}

OverlayFile::~OverlayFile() {
    content_->Rest(*budget_);
}

void OverlayFile::RefuseUnlessForChange() const {
    if (access_ != OverlayAccess::Change) throw RuntimeError(ErrorNumber::PermissionDenied);
}

std::size_t OverlayFile::Read(std::span<std::byte> into) {
    const std::size_t count = content_->Read(position_, into);
    position_ += static_cast<std::int64_t>(count);
    return count;
}

void OverlayFile::Write(std::span<const std::byte> bytes) {
    RefuseUnlessForChange();
    content_->Write(position_, bytes);
    position_ += std::ssize(bytes);
}

bool OverlayFile::Seek(std::int32_t distance, SeekFrom from) {
    const std::int64_t start = from == SeekFrom::Start     ? 0
                               : from == SeekFrom::Current ? position_
                                                           : content_->Size();
    const std::int64_t target = start + distance;
    if (target < 0) return false;
    position_ = CheckedPosition(target);
    return true;
}

std::int32_t OverlayFile::Position() const {
    return CheckedPosition(position_);
}

std::int32_t OverlayFile::Size() const {
    return CheckedPosition(content_->Size());
}

void OverlayFile::SetEnd() {
    RefuseUnlessForChange();
    content_->SetSize(position_);
}

}  // namespace zefta
