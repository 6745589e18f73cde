#include "core/ShellVerbs.h"

#include "core/Strings.h"
#include "platform/CommandText.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

constexpr auto VerbsSection = "ShellVerbs";
constexpr auto ProgramName = "zefta";
constexpr std::string_view QualityBox = "chkEncodeOggQmode";
/// In the place of the quality.
constexpr std::string_view QualityPlace = "<Q>";

struct VerbRow {
    const char* fileClass;
    const char* checkBox;
    const char* verb;
    const char* parameters;
};

constexpr VerbRow VerbRows[] = {
    // clang-format off
    {".mp3", "chkFileInfo", "ZEFTA File information", "\"%1\""},
    // Kept: "/sync" is no option, and the job refuses its line with message 1002.
    {".mp3", "chkDecode", "ZEFTA Decode", "/d \"%1\" /sync"},
    {".m3u", "chkCopyPlaylist", "ZEFTA Copy playlist", "/copy \"%1\""},
    {".wav", "chkEncode128", "ZEFTA Encode to 128 kbps", "/e 128 \"%1\" /trim"},
    {".wav", "chkEncode160", "ZEFTA Encode to 160 kbps", "/e 160 \"%1\" /trim"},
    {".wav", "chkEncode192", "ZEFTA Encode to 192 kbps", "/e 192 \"%1\" /trim"},
    {".wav", "chkEncode256", "ZEFTA Encode to 256 kbps", "/e 256 \"%1\" /trim"},
    {".wav", "chkEncode320", "ZEFTA Encode to 320 kbps", "/e 320 \"%1\" /trim"},
    {".wav", "chkEncode128ABR", "ZEFTA Encode to 128 kbps ABR", "/e abr 128 \"%1\" /trim"},
    {".wav", "chkEncode160ABR", "ZEFTA Encode to 160 kbps ABR", "/e abr 160 \"%1\" /trim"},
    {".wav", "chkEncode192ABR", "ZEFTA Encode to 192 kbps ABR", "/e abr 192 \"%1\" /trim"},
    {".wav", "chkEncode256ABR", "ZEFTA Encode to 256 kbps ABR", "/e abr 256 \"%1\" /trim"},
    {".wav", "chkEncodeVBR", "ZEFTA Encode using VBR", "/e vbr \"%1\" /trim"},
    {".wav", "chkEncodePreset1", "ZEFTA Encode using preset 1", "/e s1 \"%1\" /trim"},
    {".wav", "chkEncodePreset2", "ZEFTA Encode using preset 2", "/e s2 \"%1\" /trim"},
    {".wav", "chkEncodePreset3", "ZEFTA Encode using preset 3", "/e s3 \"%1\" /trim"},
    {".wav", "chkEncodeOgg112", "ZEFTA Encode to OGG 112 kbps", "/e ob1 \"%1\" /trim"},
    {".wav", "chkEncodeOgg128", "ZEFTA Encode to OGG 128 kbps", "/e ob2 \"%1\" /trim"},
    {".wav", "chkEncodeOgg160", "ZEFTA Encode to OGG 160 kbps", "/e ob3 \"%1\" /trim"},
    {".wav", "chkEncodeOgg192", "ZEFTA Encode to OGG 192 kbps", "/e ob4 \"%1\" /trim"},
    {".wav", "chkEncodeOgg256", "ZEFTA Encode to OGG 256 kbps", "/e ob5 \"%1\" /trim"},
    {".wav", "chkEncodeOgg350", "ZEFTA Encode to OGG 350 kbps", "/e ob6 \"%1\" /trim"},
    {".wav", "chkEncodeOggQmode", "ZEFTA Encode to OGG Q=<Q>", "/e oq<Q> \"%1\" /trim"},
    {".wav", "chkEncodeOggPreset1", "ZEFTA Encode to OGG using preset 1", "/e os1 \"%1\" /trim"},
    {".wav", "chkEncodeOggPreset2", "ZEFTA Encode to OGG using preset 2", "/e os2 \"%1\" /trim"},
    {".wav", "chkEncodeOggPreset3", "ZEFTA Encode to OGG using preset 3", "/e os3 \"%1\" /trim"},
    {".wav", "chkEncodeMPEGplus1", "ZEFTA Encode to MPEGplus (thumb)", "/e m1 \"%1\" /trim"},
    {".wav", "chkEncodeMPEGplus2", "ZEFTA Encode to MPEGplus (radio)", "/e m2 \"%1\" /trim"},
    {".wav", "chkEncodeMPEGplus3", "ZEFTA Encode to MPEGplus (standard)", "/e m3 \"%1\" /trim"},
    {".wav", "chkEncodeMPEGplus4", "ZEFTA Encode to MPEGplus (xtreme)", "/e m4 \"%1\" /trim"},
    {".wav", "chkEncodeMPEGplus5", "ZEFTA Encode to MPEGplus (insane)", "/e m5 \"%1\" /trim"},
    {".wav", "chkEncodeMPEGplus6", "ZEFTA Encode to MPEGplus (braindead)", "/e m6 \"%1\" /trim"},
    {".wav", "chkEncodeMPEGplusPreset1", "ZEFTA Encode to MPEGplus using preset 1", "/e ms1 \"%1\" /trim"},
    {".wav", "chkEncodeMPEGplusPreset2", "ZEFTA Encode to MPEGplus using preset 2", "/e ms2 \"%1\" /trim"},
    {".wav", "chkEncodeMPEGplusPreset3", "ZEFTA Encode to MPEGplus using preset 3", "/e ms3 \"%1\" /trim"},
    {"Folder", "chkBrowseWithZEFTA", "Browse with ZEFTA", "\"%1\""},
    // clang-format on
};

/// A key ends at its first "=".
std::string KeyOf(const std::string& fileClass, const std::string& verb) {
    return fileClass + "\\shell\\" + ReplaceAll(verb, "=", " ") + "\\command";
}

bool IsLetterOrDigit(char character) {
    return (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9');
}

/// The verb as the name of a file: "zefta-encode-to-ogg-q-5".
std::string IdOf(const std::string& verb) {
    std::string id;
    for (const char character : AsciiLower(verb)) {
        if (IsLetterOrDigit(character)) {
            id += character;
        } else if (!id.ends_with('-')) {
            id += '-';
        }
    }
    if (id.ends_with('-')) id.pop_back();
    return id.starts_with("zefta-") ? id : "zefta-" + id;
}

}  // namespace

std::vector<ShellVerb> ShellVerbTable(int oggQuality) {
    const std::string quality = std::to_string(oggQuality);
    std::vector<ShellVerb> table;
    for (const VerbRow& row : VerbRows)
        table.push_back({row.fileClass, row.checkBox, ReplaceAll(row.verb, QualityPlace, quality),
                         ReplaceAll(row.parameters, QualityPlace, quality)});
    return table;
}

MenuEntry ShellVerbs::EntryOf(const std::string& Class, const std::string& Verb,
                              const std::string& Parameters) const {
    const std::string program = JoinPath(FolderPart(app_.processes.OwnPath()), ProgramName);
    return {IdOf(Verb), Verb, Class, QuotePath(program) + " " + Parameters};
}

bool ShellVerbs::IsOn(const ShellVerb& verb) const {
    return app_.userSettings.GetValue(VerbsSection, KeyOf(verb.Class, verb.Verb)).has_value() &&
           desktops_.IsInMenus(EntryOf(verb.Class, verb.Verb, verb.Parameters));
}

std::optional<int> ShellVerbs::OggQuality() const {
    for (int quality = 0; quality <= HighestOggQuality; ++quality) {
        for (const ShellVerb& verb : ShellVerbTable(quality)) {
            if (verb.CheckBox == QualityBox && IsOn(verb)) return quality;
        }
    }
    return std::nullopt;
}

void ShellVerbs::RegisterShellVerb(const std::string& Class, const std::string& Verb,
                                   const std::string& Parameters, bool Enabled) {
    const MenuEntry entry = EntryOf(Class, Verb, Parameters);
    const std::string key = KeyOf(Class, Verb);
    const auto stored = app_.userSettings.GetValue(VerbsSection, key);
    if (Enabled) {
        desktops_.AddToMenus(entry);
        if (stored != entry.commandLine) app_.userSettings.Apply({{VerbsSection, key, entry.commandLine}});
    } else {
        desktops_.RemoveFromMenus(entry);
        if (stored) app_.userSettings.Apply({{VerbsSection, key, std::nullopt}});
    }
}

}  // namespace zefta
