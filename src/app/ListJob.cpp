#include "app/ListJob.h"

#include <ostream>

#include "app/ListText.h"
#include "core/Boxes.h"
#include "core/Folders.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

/// Lines are handed on in pieces of this size, so that memory stays flat with the number of files.
constexpr std::size_t OutputPiece = 32 * 1024;

struct Listing {
    std::string folder;
    std::vector<ListEntry> entries;
};

/// The folder of the text, the one file that it names, or what its mask finds.
Listing Find(App& app, const std::string& spec) {
    const std::string native = app.files.ToNativePath(spec);
    if (native.empty() || app.files.FolderExists(native)) {
        const std::string folder = native.empty() ? app.files.CurrentFolder() : native;
        return {folder, ListFolder(app.files, folder, "*", app.ansi)};
    }
    const FolderAndMask work = SplitFileSpec(app.files, native);
    if (app.files.FileExists(native)) {
        const auto kind = ListKindOf(work.mask);
        return {work.folder, kind ? std::vector{ListEntry{work.mask, *kind}} : std::vector<ListEntry>()};
    }
    return {work.folder, ListFolder(app.files, work.folder, work.mask, app.ansi)};
}

void Print(App& app, const Listing& listing, ListForm form, std::ostream& output) {
    std::string text;
    for (const ListEntry& entry : listing.entries) {
        const ListedFile file = ReadListedFile(app, listing.folder, entry);
        const ListRow row = RowOf(entry, file.bytes, file.tag, app.ansi);
        if (form == ListForm::Json) {
            AppendJsonLine(text, row, entry.kind, file);
        } else {
            AppendTableLine(text, row);
        }
        if (text.size() < OutputPiece) continue;
        output << text;
        text.clear();
    }
    output << text;
}

}  // namespace

void PrintList(App& app, const std::vector<std::string>& specs, ListForm form, std::ostream& output) {
    if (form == ListForm::Table) output << TableHeader();
    for (const std::string& spec : specs.empty() ? std::vector<std::string>(1) : specs)
        CheckRuntimeError(app, [&] { Print(app, Find(app, spec), form, output); });
    output.flush();
}

}  // namespace zefta
