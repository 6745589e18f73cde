#include "core/Boxes.h"
#include "core/FileKind.h"
#include "platform/RuntimeError.h"
#include "tags/OggCommentHeader.h"
#include "tags/OggFile.h"
#include "tags/OggStream.h"
#include "tags/TemporaryFile.h"

namespace zefta {

namespace {

void SayDenied(App& app, const std::string& path) {
    ShowWarning(app, app.messages.GetMessage(1014, app.ansi.ToText(path)));
}

OggOutcome TakePlace(App& app, TemporaryFile& fresh, const std::string& shownPath) {
    try {
        fresh.TakePlace();
        return OggOutcome::Written;
    } catch (const RuntimeError& error) {
        if (error.Kind() == ErrorNumber::PermissionDenied) {
            SayDenied(app, shownPath);
        } else {
            ShowWarning(app, app.messages.GetMessage(1003));
        }
        return OggOutcome::Told;
    }
}

}  // namespace

OggOutcome SetOggComments(App& app, const ID3Tag& tag) {
    if (!app.files.FileExists(tag.Path) || !IsOggFile(tag.Path)) return OggOutcome::Refused;
    const std::string path = app.files.FollowLinks(tag.Path);
    auto source = app.files.OpenReadOnly(path);
    if (!source) return OggOutcome::Refused;
    OggPageReader pages(*source);
    const auto headers = ReadOggHeaders(pages);
    const auto vendor = headers ? OggVendor(headers->comment) : std::nullopt;
    if (!vendor) return OggOutcome::Refused;
    const std::string comment = RenderOggCommentHeader(*vendor, tag);
    if (comment == headers->comment) return OggOutcome::Unchanged;
    TemporaryFile fresh(app.files, path, TemporaryFile::OldFile::Keep);
    if (!fresh.File()) {
        SayDenied(app, tag.Path);
        return OggOutcome::Told;
    }
    if (!WriteOggStream(*headers, comment, pages, *fresh.File())) return OggOutcome::Refused;
    source.reset();
    return TakePlace(app, fresh, tag.Path);
}

}  // namespace zefta
