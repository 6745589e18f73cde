#include "core/Boxes.h"
#include "core/FileKind.h"
#include "platform/RuntimeError.h"
#include "tags/OggCommentHeader.h"
#include "tags/OggFile.h"
#include "tags/OggStream.h"
#include "tags/TemporaryFile.h"

namespace zefta {

namespace {

void TakePlace(App& app, TemporaryFile& fresh, const std::string& shownPath) {
    try {
        fresh.TakePlace();
    } catch (const RuntimeError& error) {
        const bool denied = error.Kind() == ErrorNumber::PermissionDenied;
        ShowWarning(app, denied ? app.messages.GetMessage(1014, shownPath) : app.messages.GetMessage(1003));
    }
}

}  // namespace

void SetOggComments(App& app, const ID3Tag& tag) {
    if (!app.files.FileExists(tag.Path) || !IsOggFile(tag.Path)) return;
    const std::string path = app.files.FollowLinks(tag.Path);
    auto source = app.files.OpenReadOnly(path);
    if (!source) return;
    OggPageReader pages(*source);
    const auto headers = ReadOggHeaders(pages);
    const auto vendor = headers ? OggVendor(headers->comment) : std::nullopt;
    if (!vendor) return;
    const std::string comment = RenderOggCommentHeader(*vendor, tag);
    if (comment == headers->comment) return;
    TemporaryFile fresh(app.files, path);
    if (!fresh.File() || !WriteOggStream(*headers, comment, pages, *fresh.File())) return;
    source.reset();
    TakePlace(app, fresh, tag.Path);
}

}  // namespace zefta
