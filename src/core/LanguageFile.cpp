#include "core/LanguageFile.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "core/AgentTexts.h"
#include "core/Batch.h"
#include "core/Boxes.h"
#include "core/Numbers.h"
#include "core/Strings.h"
#include "core/Version.h"
#include "platform/EditedText.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

constexpr std::string_view LineEnd = "\r\n";

// Bounds of what is taken for a language file, far beyond the built-in table (20 KB, no text above 300
// bytes): text is held in memory, and a text that consists of place holders grows with what is put in.
constexpr std::int32_t LargestLanguageFile = 4 * 1024 * 1024;
constexpr std::size_t LongestLine = 8 * 1024;

struct Entry {
    std::string key;
    std::string value;
};

/// Characters of valid UTF-8.
std::size_t CharacterCount(std::string_view text) {
    constexpr unsigned char LeadingBits = 0xC0;
    constexpr unsigned char Continuation = 0x80;
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & LeadingBits) != Continuation;
    }));
}

/// The entry of a line; nothing for a comment, a blank line, or a key of more than eight characters.
std::optional<Entry> ParseLine(std::string_view line) {
    constexpr std::size_t LongestKey = 8;
    const std::string text = Trim(line);
    const std::size_t equals = text.find('=');
    if (text.starts_with(';') || equals == std::string::npos) return std::nullopt;
    const std::string key = text.substr(0, equals);
    if (CharacterCount(key) > LongestKey) return std::nullopt;
    return Entry{Trim(key), Trim(text.substr(equals + 1))};
}

/// Adds entries one by one. A number that is there already keeps its text, and the entry after the one that
/// repeated it is lost: kept, files in use have such lines.
class EntryCollector {
  public:
    explicit EntryCollector(std::unordered_map<std::string, std::string>& strings) : strings_(strings) {}

    void Add(const Entry& entry) {
        if (repeated_) {
            repeated_ = false;
            return;
        }
        // Never fails: a number of at most eight characters fits.
        const std::int32_t number = ToI32(LeadingNumber(entry.key));
        repeated_ = !strings_.emplace(std::to_string(number), entry.value).second;
    }

  private:
    std::unordered_map<std::string, std::string>& strings_;
    bool repeated_ = false;
};

/// The bytes of the file without a byte order mark; nothing of one that can't be read or is too large.
std::string ReadFileText(FileSystem& files, const std::string& path) {
    try {
        const auto file = files.OpenReadOnly(path);
        if (!file || file->Size() > LargestLanguageFile) return {};
        const std::string bytes = file->ReadBytes(LargestLanguageFile);
        return std::string(WithoutByteOrderMark(bytes));
    } catch (const RuntimeError&) {
        return {};
    }
}

/// Takes the first line away from `rest`, without its end.
std::string_view TakeLine(std::string_view& rest) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::string TemplateLine(const Message& message) {
    const std::string text(message.text);
    if (text.starts_with("***")) return std::string(LineEnd) + ";" + text;
    if (IsHeading(text)) return ";" + text;
    const std::string number = std::to_string(message.id);
    return std::string(5 - number.size(), '0') + number + " = " + text;
}

std::string TemplateText(Language language) {
    const VersionRecord& version = ProgramVersion();
    std::string text = "; " + ApplicationTitle() + " v" + VersionText();
    text.append(LineEnd).append("; ").append(ReplaceAll(version.LegalCopyright, "\u00A9", "(C)"));
    text.append(LineEnd).append("; Language resource file").append(LineEnd).append(LineEnd);
    for (const Message& message : MessageTable(language)) text.append(TemplateLine(message)).append(LineEnd);
    return text;
}

void WarnOfMissing(App& app, const Message& message) {
    const std::string lineBreak(LineEnd);
    ShowWarning(app, "\"" + app.state.ExternalLanguageFile + "\" is corrupted!" + lineBreak +
                         "External language file doesn't have the resourse string with code \"" +
                         std::to_string(message.id) + "\"!" + lineBreak + lineBreak +
                         "Please correct it. ZEFTA will use the default value for this resource:" +
                         lineBreak + "\"" + std::string(message.text) + "\".");
}

}  // namespace

void ReadLanguageFile(FileSystem& files, const CodePage& ansi, const std::string& path,
                      std::unordered_map<std::string, std::string>& strings) {
    const std::string text = ReadFileText(files, path);
    EntryCollector collector(strings);
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view line = TakeLine(rest);
        if (line.size() > LongestLine) continue;
        if (const auto entry = ParseLine(ansi.ToText(line))) collector.Add(*entry);
    }
}

void WriteLanguageTemplate(App& app) {
    if (const auto file = app.files.OpenCreate("zefta.lng"))
        file->Write(TemplateText(app.messages.BuiltInLanguage()));
}

bool CheckLanguageFile(App& app) {
    std::vector<const Message*> missing;
    for (const Message& message : MessageTable(app.messages.BuiltInLanguage())) {
        if (!IsHeading(message.text) && !app.messages.LanguageStrings.contains(std::to_string(message.id)))
            missing.push_back(&message);
    }
    // A poor file has hundreds of boxes: the person can leave them all.
    Batch batch(app, missing.size());
    for (const Message* message : missing) {
        if (!batch.Next()) break;
        WarnOfMissing(app, *message);
    }
    app.userSettings.Apply(AgentTexts(app));
    return !missing.empty();
}

}  // namespace zefta
