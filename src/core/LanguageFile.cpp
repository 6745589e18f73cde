#include "core/LanguageFile.h"

#include <memory>
#include <optional>
#include <string_view>

#include "core/AgentTexts.h"
#include "core/Boxes.h"
#include "core/Numbers.h"
#include "core/Strings.h"
#include "core/Version.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

struct Entry {
    std::string key;
    std::string value;
};

/// The entry of a line; nothing for a comment, a blank line, or a key of more than eight characters.
std::optional<Entry> ParseLine(std::string_view line) {
    constexpr std::size_t LastPlaceOfEquals = 8;
    const std::string text = Trim(line);
    const std::size_t equals = text.find('=');
    if (text.empty() || text[0] == ';' || equals == std::string::npos || equals > LastPlaceOfEquals)
        return std::nullopt;
    return Entry{Trim(text.substr(0, equals)), Trim(text.substr(equals + 1))};
}

/// Adds entries one by one. A failed one (a number that is there already, or none that fits) keeps what was
/// there, and takes the next used line with it: kept, files in use have such lines.
class EntryCollector {
  public:
    explicit EntryCollector(std::unordered_map<std::string, std::string>& strings) : strings_(strings) {}

    void Add(const Entry& entry) {
        if (failed_) {
            failed_ = false;
            return;
        }
        try {
            const std::int32_t number = ToI32(LeadingNumber(entry.key));
            failed_ = !strings_.emplace(std::to_string(number), entry.value).second;
        } catch (const RuntimeError&) {
            failed_ = true;
        }
    }

  private:
    std::unordered_map<std::string, std::string>& strings_;
    bool failed_ = false;
};

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
                         "Please correct it. ZEFTA will use the default value for this resource:" + lineBreak +
                         "\"" + std::string(message.text) + "\".");
}

}  // namespace

void ReadLanguageFile(FileSystem& files, const CodePage& ansi, const std::string& path,
                      std::unordered_map<std::string, std::string>& strings) {
    std::string bytes;
    try {
        const auto file = files.OpenReadOnly(path);
        if (file) bytes = file->ReadBytes(file->Size());
    } catch (const RuntimeError&) {
        return;
    }
    if (bytes.starts_with(ByteOrderMark)) bytes.erase(0, ByteOrderMark.size());
    EntryCollector collector(strings);
    for (std::string_view rest = bytes; !rest.empty();) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (const auto entry = ParseLine(ansi.ToText(line))) collector.Add(*entry);
    }
}

void WriteLanguageTemplate(App& app) {
    if (const auto file = app.files.OpenCreate("zefta.lng"))
        file->Write(TemplateText(app.messages.BuiltInLanguage()));
}

bool CheckLanguageFile(App& app) {
    bool anyMissing = false;
    for (const Message& message : MessageTable(app.messages.BuiltInLanguage())) {
        if (IsHeading(message.text) || app.messages.LanguageStrings.contains(std::to_string(message.id)))
            continue;
        anyMissing = true;
        WarnOfMissing(app, message);
    }
    app.userSettings.Apply(AgentTexts(app));
    return anyMissing;
}

}  // namespace zefta
