#include "platform/overlay/OverlayContent.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/RuntimeError.h"

namespace zefta {

OverlayContent::OverlayContent(Opener openBase) : openBase_(std::move(openBase)), base_(openBase_()) {
    if (!base_) throw RuntimeError(ErrorNumber::PermissionDenied);
    baseSize_ = size_ = base_->Size();
}

const OverlayContent::Page* OverlayContent::FindPage(std::int64_t number) const {
    const auto found = pages_.find(number);
    return found == pages_.end() ? nullptr : found->second.get();
}

/// What the base holds; zeros behind its end.
void OverlayContent::ReadBase(std::int64_t position, std::span<std::byte> into) {
    const std::int64_t available = std::clamp<std::int64_t>(baseSize_ - position, 0, std::ssize(into));
    const auto there = into.first(static_cast<std::size_t>(available));
    std::fill(into.begin() + available, into.end(), std::byte{0});
    if (there.empty()) return;
    if (!base_) base_ = openBase_();
    if (!base_) throw RuntimeError(ErrorNumber::DeviceIoError);
    base_->Seek(static_cast<std::int32_t>(position), SeekFrom::Start);
    if (base_->Read(there) < there.size()) throw RuntimeError(ErrorNumber::DeviceIoError);
}

OverlayContent::Page& OverlayContent::PageToWrite(std::int64_t number) {
    auto& page = pages_[number];
    if (!page) {
        page = std::make_unique<Page>();
        ReadBase(number * PageSize, *page);
    }
    return *page;
}

std::size_t OverlayContent::Read(std::int64_t position, std::span<std::byte> into) {
    if (isForgotten_) throw RuntimeError(ErrorNumber::DeviceIoError);
    const auto count =
        static_cast<std::size_t>(std::clamp<std::int64_t>(size_ - position, 0, std::ssize(into)));
    for (std::size_t done = 0; done < count;) {
        const std::int64_t place = position + static_cast<std::int64_t>(done);
        const auto inPage = static_cast<std::size_t>(place % PageSize);
        const std::size_t length = std::min(count - done, static_cast<std::size_t>(PageSize) - inPage);
        if (const Page* page = FindPage(place / PageSize)) {
            std::memcpy(into.data() + done, page->data() + inPage, length);
        } else {
            ReadBase(place, into.subspan(done, length));
        }
        done += length;
    }
    return count;
}

void OverlayContent::Write(std::int64_t position, std::span<const std::byte> bytes) {
    for (std::size_t done = 0; done < bytes.size();) {
        const std::int64_t place = position + static_cast<std::int64_t>(done);
        const auto inPage = static_cast<std::size_t>(place % PageSize);
        const std::size_t length = std::min(bytes.size() - done, static_cast<std::size_t>(PageSize) - inPage);
        std::memcpy(PageToWrite(place / PageSize).data() + inPage, bytes.data() + done, length);
        done += length;
    }
    size_ = std::max(size_, position + std::ssize(bytes));
    ++revision_;
}

void OverlayContent::SetSize(std::int64_t size) {
    baseSize_ = std::min(baseSize_, size);
    if (size < size_) {
        pages_.erase(pages_.lower_bound((size + PageSize - 1) / PageSize), pages_.end());
        if (const auto last = pages_.find(size / PageSize); last != pages_.end())
            std::fill(last->second->begin() + size % PageSize, last->second->end(), std::byte{0});
    }
    size_ = size;
    ++revision_;
}

void OverlayContent::Rest(OverlayBudget& budget) {
    base_.reset();
    const std::int64_t wanted = std::ssize(pages_) * PageSize - granted_;
    if (wanted <= budget.left) {
        budget.left -= wanted;
        granted_ += wanted;
        return;
    }
    budget.left += granted_;
    granted_ = 0;
    pages_.clear();
    isForgotten_ = true;
}

}  // namespace zefta
