#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/App.h"
#include "library/RenameForm.h"

namespace zefta {

/// What an extended rename would do to one file. Names are bytes, relative to the folder that it works on.
struct PreviewedRename {
    enum class Kind : std::uint8_t {
        Renamed,
        /// The name is taken, and gets a number.
        Numbered,
        Refused,
        Unchanged,
        /// A playlist whose lines get new names.
        Playlist,
    };

    Kind kind = Kind::Renamed;
    std::string oldName;
    /// "" where there is none.
    std::string newName = {};
    /// Why it is refused, or how many lines of a playlist change; for people.
    std::string reason = {};

    bool operator==(const PreviewedRename&) const = default;
};

/// Turns the steps that a previewed rename tells (Steps.h), line by line, into what happens to its files.
class RenameSteps {
  public:
    /// `isFile` tells whether there is a file of that relative name now: names may hold what stands between
    /// two of them.
    explicit RenameSteps(std::function<bool(const std::string& name)> isFile) : isFile_(std::move(isFile)) {}

    /// Nothing for a line that tells of no file.
    std::optional<PreviewedRename> Read(std::string_view line);

  private:
    std::size_t EndOfName(std::string_view text, std::string_view separator) const;
    std::string Named(std::string_view name) const;

    std::function<bool(const std::string&)> isFile_;
    /// Below the folder of the run; "" for that itself.
    std::string folder_;
    bool isTaken_ = false;
};

/// Runs an extended rename beside the caller on a file system that keeps every change to itself, by the same
/// code that renames. One is under way at a time; the disk is only read. To be used from one thread.
class RenamePreview {
  public:
    /// The App has to live as long.
    explicit RenamePreview(App& app);
    /// Waits for the one under way to see that nobody wants it.
    ~RenamePreview();
    RenamePreview(const RenamePreview&) = delete;
    RenamePreview& operator=(const RenamePreview&) = delete;

    /// Begins anew and abandons the one under way. Does not wait.
    void Begin(const RenameForm& form);
    /// Abandons the one under way and waits for its end, which comes behind the files at hand.
    void Stop();

    bool IsUnderWay() const;
    /// What became known since the last call.
    std::vector<PreviewedRename> Take();
    /// The failure in which the last one ended, as the renaming would; nothing when it went through.
    std::optional<std::string> Failure() const;

  private:
    struct Run;

    void Start();

    App& app_;
    std::unique_ptr<Run> run_;
    /// To begin when the abandoned one has ended.
    std::optional<RenameForm> next_;
};

}  // namespace zefta
