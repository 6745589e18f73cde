#include "disc/DiscHelper.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "disc/DiscQuestions.h"
#include "disc/DiscReading.h"
#include "platform/DiscLines.h"

namespace zefta {

namespace {

using Words = std::vector<std::string>;

constexpr int Done = 0;
constexpr int Failed = 1;
constexpr int NotUnderstood = 2;

/// "query" or "album" and who is asked by whom.
constexpr std::size_t WordsOfAccess = 7;

std::optional<std::int32_t> NumberOf(const std::string& word) {
    std::int32_t number = 0;
    const char* const end = word.data() + word.size();
    const auto result = std::from_chars(word.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || number < 0) return std::nullopt;
    return number;
}

std::optional<DatabaseAccess> AccessOf(const Words& words) {
    const auto port = NumberOf(words[2]);
    const auto seconds = NumberOf(words[6]);
    if (!port || !seconds) return std::nullopt;
    return DatabaseAccess{words[1], *port, words[3], words[4], words[5], *seconds};
}

template <typename Answer>
int Tell(const DatabaseReply<Answer>& reply, const HelperOutput& output) {
    if (reply.End == DatabaseEnd::Answered) return output(LinesOf(reply.Value)) ? Done : Failed;
    output(reply.Reason);
    return Failed;
}

int TellContents(const Words& words, const HelperOutput& output) {
    if (words.size() != 2) return NotUnderstood;
    const auto contents = ReadDiscContents(words[1]);
    return contents && output(LinesOf(*contents)) ? Done : Failed;
}

int TellTrack(const Words& words, const HelperOutput& output) {
    const auto number = words.size() == 3 ? NumberOf(words[2]) : std::nullopt;
    if (!number) return NotUnderstood;
    const auto take = [&](std::span<const std::byte> bytes) {
        return output(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
    };
    return ReadDiscTrack(words[1], *number, take) ? Done : Failed;
}

int TellMatches(const Words& words, const HelperOutput& output) {
    if (words.size() <= WordsOfAccess) return NotUnderstood;
    const auto access = AccessOf(words);
    const auto leadOut = NumberOf(words[WordsOfAccess]);
    if (!access || !leadOut) return NotUnderstood;
    DiscContents disc;
    disc.LeadOut = *leadOut;
    for (std::size_t i = WordsOfAccess + 1; i < words.size(); ++i) {
        const auto start = NumberOf(words[i]);
        if (!start) return NotUnderstood;
        disc.Tracks.push_back({true, *start, 0});
    }
    return Tell(QueryDatabase(*access, disc), output);
}

int TellAlbum(const Words& words, const HelperOutput& output) {
    const auto access = words.size() == WordsOfAccess + 2 ? AccessOf(words) : std::nullopt;
    if (!access) return NotUnderstood;
    return Tell(ReadDatabase(*access, {words[WordsOfAccess], words[WordsOfAccess + 1], {}, {}}), output);
}

struct Question {
    std::string_view word;
    int (*answer)(const Words& words, const HelperOutput& output);
};

constexpr Question Questions[] = {
    {"contents", TellContents}, {"track", TellTrack}, {"query", TellMatches}, {"album", TellAlbum}};

}  // namespace

int RunDiscHelper(const std::vector<std::string>& words, const HelperOutput& output) {
    const auto question = std::find_if(std::begin(Questions), std::end(Questions), [&](const Question& row) {
        return !words.empty() && row.word == words.front();
    });
    return question == std::end(Questions) ? NotUnderstood : question->answer(words, output);
}

}  // namespace zefta
