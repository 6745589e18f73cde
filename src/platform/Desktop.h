#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "platform/Paths.h"

namespace zefta {

struct WaveOutline;

enum class BoxKind { Plain, Warning, Critical };

/// A file that a person is to name.
struct FileChoice {
    std::string title = {};
    /// What such files are called, and their masks with blanks between them.
    std::string kind = {};
    std::string masks = {};
    /// Where the choice begins, and the name that is offered.
    std::string startFolder = {};
    std::string name = {};
    /// It is going to be written and need not be there; else it has to be. Nobody is asked here whether it
    /// may be written over.
    bool isToBeWritten = false;
};

/// Which dialog shows the progress.
enum class ProgressKind { Trim, CopyPlaylist };

/// A scale beside that of the whole job.
struct ProgressScale {
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    std::int32_t value = 0;
};

/// What a progress dialog shows at one moment.
struct ProgressReport {
    ProgressKind kind = ProgressKind::Trim;
    std::string fileName;
    std::string status;
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    std::int32_t value = 0;
    /// Text of each label, frame and button, by the name of its control.
    std::map<std::string, std::string> labels;
    /// Of the file at hand, where the scale of the report is that of many.
    ProgressScale current = {};
    /// Of the audio at hand, for a view that draws it; null otherwise. Shared, since reports are copied.
    std::shared_ptr<const WaveOutline> outline = nullptr;
    /// Bytes of silence that were found so far at the ends of that audio.
    std::int32_t silenceBefore = 0;
    std::int32_t silenceAfter = 0;
};

/// A progress dialog on show; it goes when it is destroyed.
class ProgressView {
  public:
    ProgressView() = default;
    ProgressView(const ProgressView&) = delete;
    ProgressView& operator=(const ProgressView&) = delete;
    virtual ~ProgressView() = default;

    virtual void Show(const ProgressReport& report) = 0;

    /// Whether it draws the outline of the report: whoever reports saves the reading otherwise.
    virtual bool DrawsOutline() const { return false; }
};

/// All that a job may ask of the person in front of the machine.
class Desktop {
  public:
    Desktop() = default;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    virtual ~Desktop() = default;

    virtual void ShowBox(BoxKind kind, const std::string& text, const std::string& caption) = 0;

    /// A question with Yes and No; true for Yes only. `noIsDefault` makes No the answer of an empty line.
    virtual bool AskQuestion(const std::string& text, const std::string& caption, bool noIsDefault) = 0;

    /// The answer, or "" when the person cancels.
    virtual std::string AskInput(const std::string& prompt, const std::string& title,
                                 const std::string& defaultAnswer) = 0;

    /// A folder that the person picks, beginning at `startFolder`; "" when the person cancels.
    virtual std::string ChooseFolder(const std::string& prompt, const std::string& title,
                                     const std::string& startFolder) = 0;

    /// The path of a file that the person picks; "" when the person cancels.
    virtual std::string ChooseFile(const FileChoice& choice) {
        return AskInput(choice.kind, choice.title, JoinPath(choice.startFolder, choice.name));
    }

    /// A line about finished work that a person who watches may want to read; nobody has to answer it, and it
    /// is no complaint.
    virtual void Note(const std::string& text) = 0;

    /// A progress dialog on show. Never null.
    virtual std::unique_ptr<ProgressView> OpenProgress() = 0;

    /// Lets the desktop paint and answer while a job works.
    virtual void ServeEvents() = 0;

    /// Opens a document or web page with the program that the person uses for it. False when nothing could
    /// be started.
    virtual bool OpenDocument(const std::string& address) = 0;

    /// Puts a file or folder where the person can get it back from. False when the desktop has no such place,
    /// or not for this one; it stands as it was then.
    virtual bool MoveToTrash(const std::string& path) {
        (void)path;
        return false;
    }

    /// Has the person's player play the playlist, or with `append` play it behind what it plays now. Does not
    /// wait. False when nothing could be started.
    virtual bool PlayPlaylist(const std::string& path, bool append) {
        (void)append;
        return OpenDocument(path);
    }

    /// A batch is at that item of so many, counted from 1. Both are 0 when it has ended.
    virtual void ShowBatch(std::size_t item, std::size_t count) {
        (void)item;
        (void)count;
    }

    /// Whether the person asked the batch under way to end: it ends behind the file at hand.
    virtual bool IsCancelled() const { return false; }

    /// Whether a warning or critical box was shown: the process then ends with exit status 1.
    virtual bool HasComplained() const = 0;
};

}  // namespace zefta
