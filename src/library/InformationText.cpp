#include "library/InformationText.h"

#include <span>
#include <sstream>
#include <string_view>

#include "core/FileKind.h"
#include "core/GenreTable.h"
#include "core/Numbers.h"
#include "core/Strings.h"
#include "library/FileInformation.h"
#include "library/InformationFields.h"
#include "platform/Text.h"
#include "tags/TagText.h"

namespace zefta {

namespace {

bool IsControl(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

/// A terminal must not take anything in a file for a command.
std::string InOneLine(std::string_view value) {
    std::string line;
    for (std::size_t at = 0; at < value.size();) {
        const char32_t character = NextCharacter(value, at).value_or(U'\uFFFD');
        AppendUtf8(line, IsControl(character) ? U' ' : character);
    }
    return line;
}

class Lines {
  public:
    explicit Lines(App& app) : app_(app) {}

    void Add(std::string_view text) { text_.append(text).append("\n"); }
    /// Of a text whose last line may have an end or not.
    void AddLines(const std::string& text) {
        std::istringstream rest(text);
        for (std::string line; std::getline(rest, line);) {
            if (line.ends_with('\r')) line.pop_back();
            Add(InOneLine(line));
        }
    }
    void Heading(std::int32_t message) { Add("\n" + app_.messages.GetMessage(message)); }
    void Field(std::int32_t label, std::string_view value) {
        Add(Trim(app_.messages.GetMessage(label) + ": " + InOneLine(ShownText(value))));
    }
    void Fields(std::span<const InformationField> fields, FileInformation& information) {
        for (const InformationField& field : fields) Field(field.label, field.value(information));
    }

    const std::string& Text() const { return text_; }

  private:
    App& app_;
    std::string text_;
};

void AddMP3(App& app, Lines& lines, FileInformation& information) {
    const ID3Tag& tag = information.Tag;
    lines.Heading(33403);
    lines.Fields(FieldsOfID3v1(), information);
    lines.Field(33421, GenreNameFromIndex(tag.Genre));
    if (tag.ID3v2Present) {
        lines.Heading(33411);
        lines.Fields(FieldsOfID3v2(), information);
        if (!tag.ID3v2Extension.UnknownFrames.empty()) lines.Add(UnknownFramesText(app, tag));
    }
    if (!tag.LyricsPresent) return;
    lines.Add("\nLyrics3");
    lines.Field(33404, tag.LyricsExtension.TrackTitle);
    lines.Field(33405, tag.LyricsExtension.Artist);
}

void AddOgg(App& app, Lines& lines, FileInformation& information) {
    const OggVorbisExtension& tag = information.Tag.OggVorbisExtension;
    lines.Add(InOneLine(app.ansi.ToText(tag.LibVorbisVersion)));
    lines.Heading(33503);
    lines.Fields(FieldsOfOgg(), information);
    const std::int32_t count = tag.getExComCount();
    if (count > 0) lines.Heading(33509);
    for (std::int32_t i = 1; i <= count; ++i)
        lines.Add(InOneLine(app.ansi.ToText(tag.getExComValue(ToI16(std::int64_t{i})))));
}

void AddMPEGplus(App& app, Lines& lines, FileInformation& information) {
    lines.Heading(33423);
    lines.Fields(FieldsOfMPEGplus(), information);
    if (!information.Tag.ID3v2Extension.UnknownFrames.empty())
        lines.Add(UnknownFramesText(app, information.Tag));
}

}  // namespace

std::string InformationText(App& app, const std::string& path) {
    FileInformation information = LoadFileInformation(app, path);
    if (information.Tag.Path.empty()) return {};
    Lines lines(app);
    lines.Add(InOneLine(app.ansi.ToText(path)));
    lines.AddLines(MeasuresText(information.Tag));
    lines.AddLines(EncoderText(information.Tag));
    if (IsMP3File(path)) {
        AddMP3(app, lines, information);
    } else if (IsOggFile(path)) {
        AddOgg(app, lines, information);
    } else {
        AddMPEGplus(app, lines, information);
    }
    return lines.Text();
}

}  // namespace zefta
