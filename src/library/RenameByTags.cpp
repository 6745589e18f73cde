#include "library/RenameByTags.h"

#include <algorithm>
#include <string_view>
#include <utility>

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

    /// The name that is told of the file in the end.
    std::string Run();
    bool HasStayed() const { return hasStayed_; }

  private:
    void PrepareFolder();
    bool TakeFolder(const std::string& folder);
    bool MakeFolder(const std::string& folder);
    std::string SpelledAsOnDisk(const std::string& folder) const;
    bool Move();
    void MoveRefused();
    bool MoveToCopyName();
    void MoveAsThePersonSays(bool wasTaken);
    std::string Typed(const std::string& answer, const std::string& offered,
                      const std::string& extension) const;
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
    /// Why the last move failed.
    ErrorNumber failure_ = {};
    bool hasStayed_ = false;
};

std::string Renaming::Run() {
    if (!plan_.wanted.folder.empty()) PrepareFolder();
    hasStayed_ = newName_.empty();
    if (hasStayed_) {
        TellStep(app_, "unchanged: " + oldName_);
    } else if (!Move()) {
        MoveRefused();
    }
    return TargetName();
}

/// The folder of rule 4: when it can't be made the person is asked once for another name.
void Renaming::PrepareFolder() {
    const std::string& wanted = plan_.wanted.folder;
    if (TakeFolder(wanted)) return;
    const std::string answer =
        app_.desktop.AskInput(app_.messages.GetMessage(10004), app_.messages.GetMessage(10003), wanted);
    if (TakeFolder(Typed(answer, wanted, {}))) return;
    ShowWarning(app_, app_.messages.GetMessage(10005, answer));
}

bool Renaming::TakeFolder(const std::string& folder) {
    if (!MakeFolder(folder)) return false;
    newName_ = JoinPath(SpelledAsOnDisk(folder), plan_.wanted.name);
    return true;
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

/// A folder that is there may have its name in another case, and lists are read where that matters. What a
/// link leads to is another name altogether.
std::string Renaming::SpelledAsOnDisk(const std::string& folder) const {
    const std::string name = NamePart(folder);
    const std::string onDisk = NamePart(app_.files.FollowLinks(PathOf(folder)));
    if (name.empty() || !EqualsIgnoringCase(onDisk, name)) return folder;
    return folder.substr(0, folder.size() - name.size()) + onDisk;
}

bool Renaming::Move() {
    try {
        app_.files.MoveFile(PathOf(oldName_), PathOf(TargetName()));
    } catch (const RuntimeError& error) {
        failure_ = error.Kind();
        return false;
    }
    TellStep(app_, "rename: " + oldName_ + " -> " + TargetName());
    return true;
}

/// Only a file that could not be moved pays for the look at what is in its way. A link that leads nowhere is
/// in the way too; only the move can tell.
void Renaming::MoveRefused() {
    const bool wasTaken = failure_ == ErrorNumber::FileAlreadyExists || IsTaken(PathOf(TargetName()));
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
        const std::string former = newName_;
        newName_ = candidate;
        if (Move()) return true;
        if (failure_ == ErrorNumber::FileAlreadyExists) newName_ = former;
    }
    return false;
}

/// An empty answer is taken for a name too: the file is then called by its extension.
void Renaming::MoveAsThePersonSays(bool wasTaken) {
    const std::string offered = app_.ansi.ToText(newName_);
    const std::string answer =
        app_.desktop.AskInput(app_.messages.GetMessage(10007), app_.messages.GetMessage(10006), offered);
    newName_ = Typed(answer, offered, plan_.extension);
    if (Move()) return;
    TellRefused(oldName_, RuntimeError(failure_, TargetName()).Text());
    const std::string told = wasTaken ? PathOf(TargetName()) : oldName_;
    ShowWarning(app_, app_.messages.GetMessage(10008, app_.ansi.ToText(told)));
    newName_ = oldName_.substr(0, ExtensionStart(oldName_));
}

/// An answer in native form. It counts from the folder of the file, and what was offered is a name already.
std::string Renaming::Typed(const std::string& answer, const std::string& offered,
                            const std::string& extension) const {
    if (answer == offered || IsTaken(PathOf(answer + extension))) return answer;
    std::string native = answer;
    std::replace(native.begin(), native.end(), '\\', PathSeparator);
    return native;
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

/// A failure names the file that it is about: one of ten thousand ends the job.
template <typename Step>
auto NamingTheFile(const std::string& path, Step step) {
    try {
        return step();
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Kind(), path);
    }
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
    const std::string filePath = JoinPath(path, fileName);
    ID3Tag tag;
    NamingTheFile(filePath, [&] { kind->read(reading, filePath, tag); });
    if (tag.Path.empty()) return Refusal(NothingToNameBy, "can't be read");
    if (tag.Artist.empty() && tag.Title.empty())
        return Refusal(NothingToNameBy, "holds neither artist nor title");
    const std::string_view extension = std::string_view(fileName).substr(ExtensionStart(fileName));
    return {.result = 0,
            .reason = {},
            .extension = kind->caseOfExtension(extension),
            .wanted = NameByRule(rule, NamingTheFile(filePath, [&] { return kind->fields(tag); }), fileName)};
}

RenamePlan PlanOrTell(App& app, const std::string& fileName, const std::function<RenamePlan()>& read) {
    try {
        return read();
    } catch (const RuntimeError& error) {
        TellStep(app, "refused: " + fileName + ": " + RuntimeError(error.Kind()).Text());
        throw;
    }
}

RenameOutcome RenameAsPlanned(App& app, const RenamePlan& plan, const std::string& path,
                              std::string& fileName) {
    if (plan.result != 0) {
        TellStep(app, "refused: " + fileName + ": " + plan.reason);
        return {.result = plan.result, .hasStayed = false};
    }
    Renaming renaming(app, plan, path, fileName);
    std::string told = renaming.Run();
    fileName = std::move(told);
    return {.result = 0, .hasStayed = renaming.HasStayed()};
}

RenameOutcome RenameByTags(App& app, const std::string& path, std::string& fileName, std::int32_t mode) {
    const RenameRule rule = RuleOfRun(app, mode);
    const FileReading reading = {app.files, app.ansi, UnknownContent::PassOver};
    const RenamePlan plan =
        PlanOrTell(app, fileName, [&] { return ReadForRename(reading, rule, path, fileName); });
    return RenameAsPlanned(app, plan, path, fileName);
}

std::int32_t WaveFile::RenameFileByTAGsData(const std::string& path, std::string& fileName,
                                            std::int32_t mode) {
    return RenameByTags(app_, path, fileName, mode).result;
}

}  // namespace zefta
