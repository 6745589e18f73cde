// Whatever a CD information file holds, it is read, and what is written into it is found there again while
// the rest stays.

#include "cd/CDInfoFile.h"
#include "cd/ProfileFile.h"
#include "fuzz/FuzzTargets.h"
#include "fuzz/FuzzWorld.h"

namespace zefta::fuzz {

namespace {

const CodePage& Ansi() {
    static const CodePage page = LoadCodePage(1252);
    return page;
}

constexpr std::string_view Value = " new = value ";

/// One value put into the file under that name.
void WriteOne(std::string_view input, std::string_view section, std::string_view key) {
    ProfileFile file(input, Ansi());
    const std::string before = file.ReadProfileValue(section, key);
    file.WriteProfileValue(section, key, before);
    const bool wasThere = !file.IsChanged();
    Require(!wasThere || file.Bytes() == input, "the value that is there changes nothing");
    file.WriteProfileValue(section, key, Value);
    const std::string bytes = file.Bytes();
    Require(ProfileFile(bytes, Ansi()).ReadProfileValue(section, key) == Value, "a value is read back");
    Require(bytes.size() + before.size() * 2 >= input.size(), "nothing but the old value goes");
    file.WriteProfileValue(section, key, Value);
    Require(file.Bytes() == bytes, "writing twice is writing once");
}

}  // namespace

void FuzzProfileFile(std::string_view input) {
    Require(ProfileFile(input, Ansi()).Bytes() == input, "what is not written stays");
    WriteOne(input, "Options", "Artist");
    WriteOne(input, "Names", "01");
    WriteOne(input, "Somewhere else", "Key");

    FuzzWorld& world = FreshWorld();
    world.files.Put("a.zfc", input);
    CDInfo info;
    if (!Ends([&] { LoadCDInfo(world, "a.zfc", info); })) return;
    SaveCDInfo(world, "a.zfc", info);
    CDInfo again;
    LoadCDInfo(world, "a.zfc", again);
    Require(again.Artist == info.Artist && again.Genre == info.Genre && again.Length == info.Length &&
                again.Tracks.size() == info.Tracks.size(),
            "what is saved is loaded again");
    for (std::size_t i = 0; i < info.Tracks.size(); ++i)
        Require(again.Tracks[i].Seconds == info.Tracks[i].Seconds &&
                    again.Tracks[i].Selected == info.Tracks[i].Selected,
                "tracks are loaded again");
}

}  // namespace zefta::fuzz
