#include "platform/posix/DiscHelperClient.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>

#include "platform/AudioDisc.h"
#include "platform/DiscDatabase.h"
#include "platform/DiscLines.h"
#include "platform/Paths.h"
#include "platform/posix/PipedProgram.h"
#include "platform/posix/PosixProcesses.h"

namespace zefta {

namespace {

using Clock = std::chrono::steady_clock;
using Arguments = std::vector<std::string>;

enum class HelperEnd { Succeeded, Failed, Cancelled };

/// How long a drive may take to tell what is in it.
constexpr std::chrono::seconds DriveTime{90};
constexpr std::chrono::milliseconds StepTime{10};

struct HelperRun {
    std::string program;
    Arguments arguments;
    /// The helper is ended behind it.
    std::chrono::seconds most;
};

HelperEnd RunHelper(const HelperRun& run, const std::function<void(std::string_view)>& take,
                    const WaitStep& wait) {
    if (run.program.empty()) return HelperEnd::Failed;
    PipedProgram helper(run.program, run.arguments);
    const auto start = Clock::now();
    auto nextStep = start;
    for (;;) {
        std::string_view piece;
        const PipedProgram::News news = helper.Read(piece);
        if (news == PipedProgram::News::End)
            return helper.HasSucceeded() ? HelperEnd::Succeeded : HelperEnd::Failed;
        if (news == PipedProgram::News::Bytes) take(piece);
        const auto now = Clock::now();
        if (now - start > run.most) return HelperEnd::Failed;
        if (now < nextStep) continue;
        if (!wait()) return HelperEnd::Cancelled;
        nextStep = now + StepTime;
    }
}

class HelperDisc : public AudioDisc {
  public:
    explicit HelperDisc(std::string helper) : helper_(std::move(helper)) {}

    std::vector<std::string> Drives() const override;
    std::optional<DiscContents> ReadContents(const std::string& source, const WaitStep& wait) override;
    TrackReading ReadTrack(const std::string& source, std::int32_t number,
                           const std::function<void(std::span<const std::byte>)>& take,
                           const WaitStep& wait) override;

  private:
    std::string Source(const std::string& source) const;

    std::string helper_;
};

bool IsDrive(std::string_view name) {
    constexpr std::string_view Prefix = "sr";
    if (!name.starts_with(Prefix)) return false;
    name.remove_prefix(Prefix.size());
    return !name.empty() &&
           std::all_of(name.begin(), name.end(), [](char digit) { return digit >= '0' && digit <= '9'; });
}

std::vector<std::string> HelperDisc::Drives() const {
    std::vector<std::string> drives;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/dev", error)) {
        if (IsDrive(entry.path().filename().string())) drives.push_back(entry.path().string());
    }
    std::sort(drives.begin(), drives.end());
    return drives;
}

std::string HelperDisc::Source(const std::string& source) const {
    if (!source.empty()) return source;
    const std::vector<std::string> drives = Drives();
    return drives.empty() ? "/dev/cdrom" : drives.front();
}

std::optional<DiscContents> HelperDisc::ReadContents(const std::string& source, const WaitStep& wait) {
    std::string lines;
    const HelperEnd end = RunHelper(
        {helper_, {"contents", Source(source)}, DriveTime}, [&](std::string_view piece) { lines += piece; },
        wait);
    return end == HelperEnd::Succeeded ? ContentsOf(lines) : std::nullopt;
}

TrackReading HelperDisc::ReadTrack(const std::string& source, std::int32_t number,
                                   const std::function<void(std::span<const std::byte>)>& take,
                                   const WaitStep& wait) {
    // A scratched disc is read for hours; the person can end it.
    constexpr std::chrono::seconds AnyTime{std::chrono::hours{24}};
    const HelperEnd end = RunHelper(
        {helper_, {"track", Source(source), std::to_string(number)}, AnyTime},
        [&](std::string_view piece) { take(std::as_bytes(std::span(piece))); }, wait);
    return end == HelperEnd::Succeeded   ? TrackReading::Done
           : end == HelperEnd::Cancelled ? TrackReading::Cancelled
                                         : TrackReading::Failed;
}

class HelperDatabase : public DiscDatabase {
  public:
    explicit HelperDatabase(std::string helper) : helper_(std::move(helper)) {}

    DatabaseReply<std::vector<DatabaseMatch>> Query(const DatabaseAccess& access, const DiscContents& disc,
                                                    const WaitStep& wait) override {
        Arguments words = WordsOf("query", access);
        words.push_back(std::to_string(disc.LeadOut));
        for (const DiscTrack& track : disc.Tracks) words.push_back(std::to_string(track.Start));
        return Ask<std::vector<DatabaseMatch>>({helper_, words, TimeOf(access)}, MatchesOf, wait);
    }

    DatabaseReply<DatabaseAlbum> Read(const DatabaseAccess& access, const DatabaseMatch& match,
                                      const WaitStep& wait) override {
        Arguments words = WordsOf("album", access);
        words.insert(words.end(), {match.Category, match.DiscId});
        return Ask<DatabaseAlbum>({helper_, words, TimeOf(access)}, AlbumOf, wait);
    }

  private:
    static Arguments WordsOf(const char* question, const DatabaseAccess& access) {
        return {question,
                access.Server,
                std::to_string(access.Port),
                access.ClientName,
                access.ClientVersion,
                access.UserAddress,
                std::to_string(access.Seconds)};
    }

    /// The helper gives up by itself in most cases, within a second behind the time.
    static std::chrono::seconds TimeOf(const DatabaseAccess& access) {
        return std::chrono::seconds{access.Seconds} + std::chrono::seconds{2};
    }

    template <typename Answer>
    static DatabaseReply<Answer> Ask(const HelperRun& run, std::optional<Answer> (*read)(std::string_view),
                                     const WaitStep& wait) {
        std::string lines;
        const HelperEnd end = RunHelper(
            run, [&](std::string_view piece) { lines += piece; }, wait);
        if (end == HelperEnd::Cancelled) return {DatabaseEnd::Cancelled, {}, {}};
        if (end == HelperEnd::Failed) return {DatabaseEnd::Failed, lines, {}};
        auto answer = read(lines);
        if (!answer) return {DatabaseEnd::Failed, {}, {}};
        return {DatabaseEnd::Answered, {}, std::move(*answer)};
    }

    std::string helper_;
};

}  // namespace

std::string DiscHelperPath(const std::string& ownPath) {
    const std::string folder(FolderPart(ownPath));
    std::string path = FindProgram(JoinPath(folder, DiscHelperName));
    return path.empty() ? FindProgram(JoinPath(folder, std::string("../lib/zefta/") + DiscHelperName)) : path;
}

std::unique_ptr<AudioDisc> MakeAudioDisc(const std::string& ownPath) {
    return std::make_unique<HelperDisc>(DiscHelperPath(ownPath));
}

std::unique_ptr<DiscDatabase> MakeDiscDatabase(const std::string& ownPath) {
    return std::make_unique<HelperDatabase>(DiscHelperPath(ownPath));
}

}  // namespace zefta
