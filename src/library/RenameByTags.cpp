#include "library/RenameByTags.h"

#include <string_view>

#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/FileNames.h"
#include "core/Steps.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"
#include "tags/MP3File.h"
#include "tags/MPEGplusFile.h"
#include "tags/OggFile.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

constexpr std::int32_t RuleInPlainLetters = 5;

constexpr std::int32_t NothingToNameBy = 1;
constexpr std::int32_t NoKindWithTags = 3;

/// A name that is taken gets " {2}" to " {99}".
constexpr int FirstCopyNumber = 2;
constexpr int LastCopyNumber = 99;

/// What tells the kinds of files apart.
struct Kind {
    bool (*isOf)(std::string_view name);
    std::string (*caseOfExtension)(std::string_view extension);
    void (*read)(const FileReading& reading, const std::string& path, ID3Tag& tag);
    RenameFields (*fields)(const ID3Tag& tag);
};

constexpr Kind Kinds[] = {{IsMP3File, ToUpper, ReadMP3File, FieldsOfMP3},
                          {IsOggFile, ToLower, ReadOGGFile, FieldsOfOgg},
                          {IsMPEGplusFile, ToLower, ReadMPEGplusFile, FieldsOfMPEGplus}};

const Kind* KindOf(std::string_view name) {
    for (const Kind& kind : Kinds) {
        if (kind.isOf(name)) return &kind;
    }
    return nullptr;
}

RenamePlan Refusal(std::int32_t result, const std::string& reason) {
    return {.result = result, .reason = reason, .extension = {}, .wanted = {}};
}

/// The moving half for one file.
class Renaming {
  public:
    Renaming(App& app, const RenamePlan& plan, const std::string& folder, const std::string& oldName)
        : app_(app), plan_(plan), folder_(folder), oldName_(oldName), newName_(plan.wanted.Path()) {}

    /// The name that the file has in the end.
    std::string Run(bool inFolderOfArtist);

  private:
    void PrepareFolder();
    bool MakeFolder(const std::string& folder);
    bool Move();
    void MoveRefused();
    bool MoveToCopyName();
    void MoveAsThePersonSays(bool wasTaken);
    bool IsTaken(const std::string& path) const;
    std::string NameWithNumber(int number) const;
    std::string TargetName() const { return newName_ + plan_.extension; }
    std::string PathOf(const std::string& name) const { return JoinPath(folder_, name); }
    void TellRefused(const std::string& name, const std::string& reason) {
        TellStep(app_, "refused: " + name + ": " + reason);
    }

    App& app_;
    const RenamePlan& plan_;
    const std::string& folder_;
    const std::string& oldName_;
    /// Relative to the folder, without extension.
    std::string newName_;
    /// Why the last move failed, told with the name as the person knows it.
    std::string failure_;
};

std::string Renaming::Run(bool inFolderOfArtist) {
    if (inFolderOfArtist) PrepareFolder();
    if (newName_.empty()) {
        TellStep(app_, "unchanged: " + oldName_);
    } else if (!Move()) {
        MoveRefused();
    }
    return TargetName();
}

/// The folder of rule 4: when it can't be made the person is asked once for another name.
void Renaming::PrepareFolder() {
    std::string folder = plan_.wanted.folder;
    if (MakeFolder(folder)) return;
    folder = app_.desktop.AskInput(app_.messages.GetMessage(10004), app_.messages.GetMessage(10003), folder);
    if (MakeFolder(folder)) {
        newName_ = JoinPath(folder, plan_.wanted.name);
    } else {
        ShowWarning(app_, app_.messages.GetMessage(10005, folder));
    }
}

bool Renaming::MakeFolder(const std::string& folder) {
    if (folder.empty() || app_.files.FolderExists(PathOf(folder))) return true;
    try {
        app_.files.CreateFolder(PathOf(folder));
    } catch (const RuntimeError& error) {
        TellRefused(folder, RuntimeError(error.Kind()).Text());
        return false;
    }
    TellStep(app_, "folder: " + folder);
    return true;
}

bool Renaming::Move() {
    try {
        app_.files.MoveFile(PathOf(oldName_), PathOf(TargetName()));
    } catch (const RuntimeError& error) {
        failure_ = RuntimeError(error.Kind(), TargetName()).Text();
        return false;
    }
    TellStep(app_, "rename: " + oldName_ + " -> " + TargetName());
    return true;
}

/// Only a file that could not be moved pays for the look at what is in its way.
void Renaming::MoveRefused() {
    const bool wasTaken = IsTaken(PathOf(TargetName()));
    if (wasTaken) {
        TellStep(app_, "collision: " + TargetName() + " is taken");
        if (MoveToCopyName()) return;
    }
    MoveAsThePersonSays(wasTaken);
}

/// A free name that the disk refuses keeps its number, and the count goes on behind it: "a {2} {3}".
bool Renaming::MoveToCopyName() {
    for (int number = FirstCopyNumber; number <= LastCopyNumber; ++number) {
        const std::string candidate = NameWithNumber(number);
        if (IsTaken(PathOf(candidate + plan_.extension))) continue;
        newName_ = candidate;
        if (Move()) return true;
    }
    return false;
}

/// An empty answer is taken for a name too: the file is then called by its extension.
void Renaming::MoveAsThePersonSays(bool wasTaken) {
    newName_ = app_.desktop.AskInput(app_.messages.GetMessage(10007), app_.messages.GetMessage(10006),
                                     app_.ansi.ToText(newName_));
    if (Move()) return;
    TellRefused(oldName_, failure_);
    const std::string told = wasTaken ? PathOf(TargetName()) : oldName_;
    ShowWarning(app_, app_.messages.GetMessage(10008, app_.ansi.ToText(told)));
    newName_ = oldName_.substr(0, ExtensionStart(oldName_));
}

bool Renaming::IsTaken(const std::string& path) const {
    return app_.files.FileExists(path) || app_.files.FolderExists(path);
}

/// A name that leaves no room for the number is cut in front of it.
std::string Renaming::NameWithNumber(int number) const {
    const std::string ending = " {" + std::to_string(number) + "}";
    const std::size_t start = newName_.size() - NamePart(newName_).size();
    const std::size_t room = LongestName - ending.size() - plan_.extension.size();
    return newName_.substr(0, start) + std::string(CutToBytes(NamePart(newName_), room)) + ending;
}

}  // namespace

RenameRule RuleOfRun(App& app, std::int32_t mode) {
    if (mode == RuleInPlainLetters) app.state.TranslateNames = true;
    return {mode, app.state.CustomRenameTemplate, app.state.TranslateNames};
}

RenamePlan ReadForRename(const FileReading& reading, const RenameRule& rule, const std::string& path,
                         const std::string& fileName) {
    const Kind* kind = KindOf(fileName);
    if (kind == nullptr) return Refusal(NoKindWithTags, "no kind of file that has tags");
    ID3Tag tag;
    kind->read(reading, JoinPath(path, fileName), tag);
    if (tag.Path.empty()) return Refusal(NothingToNameBy, "can't be read");
    if (tag.Artist.empty() && tag.Title.empty())
        return Refusal(NothingToNameBy, "holds neither artist nor title");
    const std::string_view extension = std::string_view(fileName).substr(ExtensionStart(fileName));
    return {.result = 0,
            .reason = {},
            .extension = kind->caseOfExtension(extension),
            .wanted = NameByRule(rule, kind->fields(tag), fileName)};
}

std::int32_t RenameAsPlanned(App& app, const RenamePlan& plan, const std::string& path,
                             std::string& fileName) {
    if (plan.result != 0) {
        TellStep(app, "refused: " + fileName + ": " + plan.reason);
        return plan.result;
    }
    fileName = Renaming(app, plan, path, fileName).Run(!plan.wanted.folder.empty());
    return 0;
}

std::int32_t WaveFile::RenameFileByTAGsData(const std::string& path, std::string& fileName,
                                            std::int32_t mode) {
    const RenameRule rule = RuleOfRun(app_, mode);
    const FileReading reading = {app_.files, app_.ansi, UnknownContent::PassOver};
    return RenameAsPlanned(app_, ReadForRename(reading, rule, path, fileName), path, fileName);
}

}  // namespace zefta
