#include "cd/GrabTracks.h"

#include <algorithm>
#include <numeric>
#include <set>

#include "cd/CompressCD.h"
#include "cd/CurrentFolderDuring.h"
#include "core/Batch.h"
#include "core/Boxes.h"
#include "core/ByteCodec.h"
#include "core/Strings.h"
#include "platform/CommandText.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "tags/TemporaryFile.h"

namespace zefta {

namespace {

constexpr std::int32_t GrabberTitle = 33014;
constexpr std::int32_t OverwriteQuestion = 33109;
constexpr std::int32_t FileFailed = 1011;
constexpr std::int32_t ReadFailed = 1010;

constexpr std::int32_t HeaderBytes = 44;

/// In front of so many bytes of CD audio.
std::string WaveHeader(std::int32_t audioBytes) {
    constexpr std::int32_t BehindSize = HeaderBytes - 8;
    return "RIFF" + ByteCodec::FromLong(audioBytes + BehindSize) + "WAVEfmt " + ByteCodec::FromLong(16) +
           ByteCodec::FromShort(1) + ByteCodec::FromShort(2) + ByteCodec::FromLong(44100) +
           ByteCodec::FromLong(176400) + ByteCodec::FromShort(4) + ByteCodec::FromShort(16) + "data" +
           ByteCodec::FromLong(audioBytes);
}

class Grabbing {
  public:
    Grabbing(App& app, AudioDisc& disc, const GrabJob& job, const GrabProgress& progress)
        : app_(app), disc_(disc), job_(job), progress_(progress), folder_(FolderOfCD(app, job.Folder)) {}

    GrabEnd Run();

  private:
    void ChooseTracks();
    GrabEnd ReadTracks();
    TrackReading ReadOne(std::int32_t number);
    TrackReading ReadInto(BinaryFile& file, std::int32_t number);
    void PutInPlace(TemporaryFile& fresh, const std::string& target, std::int32_t number);
    void Advance(std::int32_t number, std::size_t bytes);
    bool Wait();

    std::string PathOf(std::int32_t number) const {
        return JoinPath(folder_, TrackWaveName(static_cast<std::size_t>(number)));
    }
    const DiscTrack& Track(std::int32_t number) const {
        return contents_.Tracks[static_cast<std::size_t>(number - contents_.FirstNumber)];
    }
    std::int64_t BytesOf(std::int32_t number) const {
        return std::int64_t{Track(number).Sectors} * DiscSectorBytes;
    }

    App& app_;
    AudioDisc& disc_;
    const GrabJob& job_;
    const GrabProgress& progress_;
    std::string folder_;
    DiscContents contents_;
    std::vector<std::int32_t> numbers_;
    /// Those whose file may be written over.
    std::set<std::int32_t> replaced_;
    std::int64_t allBytes_ = 0;
    std::int64_t doneBytes_ = 0;
};

GrabEnd Grabbing::Run() {
    const auto contents = disc_.ReadContents(job_.Source, [this] { return Wait(); });
    if (app_.desktop.IsCancelled()) return GrabEnd::Cancelled;
    if (!contents) return GrabEnd::NoDisc;
    contents_ = *contents;
    const bool hasAudio =
        std::any_of(contents_.Tracks.begin(), contents_.Tracks.end(), std::mem_fn(&DiscTrack::IsAudio));
    if (!hasAudio) return GrabEnd::NoDisc;
    if (!MakeFolderOfCD(app_, folder_)) return GrabEnd::Stopped;
    ChooseTracks();
    GrabEnd end = GrabEnd::Stopped;
    CheckRuntimeError(app_, [&] { end = ReadTracks(); });
    return end;
}

/// Nobody has to sit by a disc that is read for the next question to come.
void Grabbing::ChooseTracks() {
    for (std::size_t i = 0; i < contents_.Tracks.size(); ++i) {
        if (!contents_.Tracks[i].IsAudio) continue;
        const auto number = contents_.FirstNumber + static_cast<std::int32_t>(i);
        const std::string path = PathOf(number);
        if (app_.files.FileExists(path)) {
            const std::string question = app_.messages.GetMessage(OverwriteQuestion, app_.ansi.ToText(path));
            if (!AskYesNo(app_, question, app_.messages.GetMessage(GrabberTitle), true)) continue;
            replaced_.insert(number);
        }
        numbers_.push_back(number);
        allBytes_ += BytesOf(number);
    }
}

GrabEnd Grabbing::ReadTracks() {
    Batch batch(app_, numbers_.size());
    for (const std::int32_t number : numbers_) {
        if (!batch.Next()) return GrabEnd::Cancelled;
        const std::int64_t before = doneBytes_;
        const TrackReading reading = ReadOne(number);
        if (reading == TrackReading::Cancelled) return GrabEnd::Cancelled;
        if (reading == TrackReading::Failed)
            ShowWarning(app_, app_.messages.GetMessage(FileFailed, app_.ansi.ToText(PathOf(number)),
                                                       app_.messages.GetMessage(ReadFailed)));
        doneBytes_ = before + BytesOf(number);
    }
    return GrabEnd::Done;
}

TrackReading Grabbing::ReadOne(std::int32_t number) {
    const std::string target = app_.files.FollowLinks(PathOf(number));
    TemporaryFile fresh(app_.files, target, TemporaryFile::OldFile::Keep);
    if (fresh.File() == nullptr) throw RuntimeError(ErrorNumber::PermissionDenied, target);
    const TrackReading reading = ReadInto(*fresh.File(), number);
    if (reading == TrackReading::Done) PutInPlace(fresh, target, number);
    return reading;
}

TrackReading Grabbing::ReadInto(BinaryFile& file, std::int32_t number) {
    if (BytesOf(number) > INT32_MAX - HeaderBytes) throw RuntimeError(ErrorNumber::Overflow);
    file.Write(WaveHeader(static_cast<std::int32_t>(BytesOf(number))));
    std::int64_t taken = 0;
    const auto take = [&](std::span<const std::byte> bytes) {
        file.Write(bytes);
        taken += static_cast<std::int64_t>(bytes.size());
        Advance(number, bytes.size());
    };
    const TrackReading reading = disc_.ReadTrack(job_.Source, number, take, [this] { return Wait(); });
    if (reading != TrackReading::Done) return reading;
    // A piece that is missing would not be heard of otherwise.
    if (taken != BytesOf(number)) return TrackReading::Failed;
    file.Flush();
    return TrackReading::Done;
}

/// What came to that name since the person was asked is nobody's to write over.
void Grabbing::PutInPlace(TemporaryFile& fresh, const std::string& target, std::int32_t number) {
    if (app_.files.FileExists(target) && !replaced_.contains(number))
        throw RuntimeError(ErrorNumber::FileAlreadyExists, target);
    fresh.TakePlace();
}

void Grabbing::Advance(std::int32_t number, std::size_t bytes) {
    doneBytes_ += static_cast<std::int64_t>(bytes);
    if (!progress_ || allBytes_ == 0) return;
    constexpr std::int64_t Thousandths = 1000;
    progress_(number, numbers_.back(), static_cast<std::int32_t>(doneBytes_ * Thousandths / allBytes_));
}

bool Grabbing::Wait() {
    app_.desktop.ServeEvents();
    return !app_.desktop.IsCancelled();
}

/// A folder of the grabber's, or on a system where it can't run the program that takes its place.
std::string ProgramOf(const App& app, const std::string& value) {
    constexpr auto GrabberName = "cddae99.exe";
    const std::string native = app.files.ToNativePath(value);
    return app.files.FolderExists(native) ? JoinPath(native, GrabberName) : native;
}

}  // namespace

GrabEnd GrabTracks(App& app, AudioDisc& disc, const GrabJob& job, const GrabProgress& progress) {
    return Grabbing(app, disc, job, progress).Run();
}

bool StartOutsideGrabber(App& app, const std::string& folder) {
    const std::string value =
        Trim(app.machineSettings.GetValue("SOFTWARE\\CD DAE 99", "value1").value_or(""));
    if (value.empty()) return false;
    const std::string program = ProgramOf(app, value);
    const std::string place = FolderOfCD(app, folder);
    if (!MakeFolderOfCD(app, place)) return true;
    const CurrentFolderDuring current(app.files, place);
    app.processes.StartProgram(QuotePath(program));
    return true;
}

}  // namespace zefta
