#include "app/ListJob.h"

#include <ostream>
#include <span>

#include "app/ListText.h"
#include "core/Boxes.h"
#include "core/Folders.h"
#include "core/TextInRuns.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

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

/// The lines of some entries. Asks the services of the App only for what several threads may ask at once.
std::string TextOf(const FileReading& reading, const std::string& folder, std::span<const ListEntry> entries,
                   ListForm form) {
    std::string text;
    for (const ListEntry& entry : entries) {
        const ListedFile file = ReadListedFile(reading, folder, entry);
        const ListRow row = RowOf(entry, file.bytes, file.tag, reading.ansi);
        if (form == ListForm::Json) {
            AppendJsonLine(text, row, entry.kind, file);
        } else {
            AppendTableLine(text, row);
        }
    }
    return text;
}

void Print(App& app, const Listing& listing, ListForm form, std::ostream& output) {
    const FileReading reading = {app.files, app.ansi, UnknownContent::PassOver};
    const std::span<const ListEntry> entries = listing.entries;
    const auto textOf = [&](IndexRun run) {
        return TextOf(reading, listing.folder, entries.subspan(run.first, run.count), form);
    };
    MakeTextInRuns(entries.size(), textOf, [&](const std::string& text) { output << text; });
}

}  // namespace

void PrintList(App& app, const std::vector<std::string>& specs, ListForm form, std::ostream& output) {
    if (form == ListForm::Table) output << TableHeader();
    for (const std::string& spec : specs.empty() ? std::vector<std::string>(1) : specs)
        CheckRuntimeError(app, [&] { Print(app, Find(app, spec), form, output); });
    // A list that was cut short must not look complete to a script.
    if (!output.flush()) throw RuntimeError(ErrorNumber::DeviceIoError);
}

}  // namespace zefta
