#include "core/Options.h"

#include <array>

#include "core/Numbers.h"
#include "core/OptionTable.h"
#include "core/Version.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

/// A command line that begins with the name of a folder or file; what stands behind it is not looked at.
void ParsePath(App& app, const std::string& token) {
    const std::string native = app.files.ToNativePath(token);
    const std::string path = IsAbsolutePath(native) ? native : JoinPath(app.files.CurrentFolder(), native);
    if (app.files.FolderExists(path)) {
        app.state.JobCode = 12;
        app.state.CurrentFolder = path;
    } else if (app.files.FileExists(path)) {
        app.state.JobCode = 11;
        app.state.FileSpec = path;
    } else {
        app.state.JobCode = 0;
        app.state.EmbeddingStart = token == "-Embedding";
    }
}

/// A token that is no option: a rename format, or else the files to work on. The last one wins.
void ApplyPlainToken(OptionReader& reader) {
    const std::string item = reader.Item();
    if (item.starts_with("/f") && BeginsWithSlash(reader.app.files, reader.RawItem())) {
        reader.app.state.RenameFormat = ToI16(LeadingNumber(std::string_view(item).substr(2, 1)));
    } else {
        reader.app.state.FileSpec = reader.RawItem();
    }
}

struct GroupHeading {
    OptionGroup group;
    std::string_view text;
};

constexpr std::array<GroupHeading, 6> GroupHeadings = {{
    {OptionGroup::Job, "Jobs"},
    {OptionGroup::Files, "Files and names"},
    {OptionGroup::Encoding, "Encoding"},
    {OptionGroup::Wave, "WAV files"},
    {OptionGroup::Tags, "Tag values"},
    {OptionGroup::Run, "How it runs"},
}};

constexpr std::string_view HelpTail = R"(
Modes of /encode (320 kbps MP3 when none is given):
  128 160 192 224 256 320           MP3, constant rate
  abr 110..310, abr                 MP3, average rate
  s1 s2 s3, os1 os2 os3, ms1 ms2 ms3  your own presets for MP3, Ogg Vorbis, MPEGplus
  112 350, ob1..ob6                 Ogg Vorbis, nominal rate
  oq0..oq10                         Ogg Vorbis, quality
  thumb radio standard xtreme insane braindead, m1..m6  MPEGplus

  /f0 .. /f9                        name format of /rename; layout of the silence of /wavetrim

  /list [folder or mask] [/json]    the rows of the file list, cells separated by tabs, or one JSON object
                                    a line; only as the first word
  /preview                          beside /rename, /rename2, /autorename, /change, /copy, /makelist and
                                    /makezfc: prints what the job would do, one line a step, and changes
                                    nothing
  --help, -h                        this text
  --version                         the version

A token that is no option names the files to work on; a path may begin with "/".

Exit status: 0 done; 1 a warning or error was shown, or a failure ended the program;
2 the job needs a display and there is none.
)";

/// "  /encode, /e [mode] [mask]", filled up to the column of the explanations.
std::string OptionColumn(const Option& option) {
    constexpr std::size_t Column = 36;
    std::string text = "  ";
    for (const char character : option.names) text += character == ' ' ? ", " : std::string(1, character);
    if (!option.value.empty()) text.append(" ").append(option.value);
    if (text.size() < Column) return text + std::string(Column - text.size(), ' ');
    return text + "\n" + std::string(Column, ' ');
}

}  // namespace

bool ParseCommandLine(App& app, const CommandLine& commandLine) {
    if (commandLine.Count() == 0) return false;
    if (!BeginsWithSlash(app.files, commandLine.RawItem(1))) {
        ParsePath(app, commandLine.RawItem(1));
        return true;
    }
    OptionReader reader(app, commandLine);
    while (reader.Next()) {
        if (const Option* option = FindOption(reader.Item())) {
            option->apply(reader);
        } else {
            ApplyPlainToken(reader);
        }
    }
    return true;
}

std::string HelpText() {
    std::string text = ApplicationTitle() + " " + VersionText() + "\n\n";
    text += "Usage: zefta [folder | file]\n       zefta /job [options] [files]\n";
    for (const GroupHeading& heading : GroupHeadings) {
        text.append("\n").append(heading.text).append(":\n");
        for (const Option& option : OptionTable()) {
            if (option.group == heading.group) text.append(OptionColumn(option)).append(option.help) += '\n';
        }
    }
    return text.append(HelpTail);
}

}  // namespace zefta
