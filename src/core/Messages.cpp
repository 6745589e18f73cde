#include "core/Messages.h"

#include <array>

#include "core/AppState.h"
#include "core/LanguageFile.h"
#include "core/Strings.h"

namespace zefta {

Messages::Messages(Language language, AppState& state, FileSystem& files, const CodePage& ansi)
    : language_(language), state_(state), files_(files), ansi_(ansi) {}

std::string Messages::GetMessage(std::int32_t id, std::string_view p1, std::string_view p2,
                                 std::string_view p3, std::string_view p4, std::string_view p5) {
    if (state_.EnableExternalLanguage && LanguageStrings.empty()) LoadLanguageFile();
    std::string text;
    if (state_.EnableExternalLanguage) {
        const auto external = LanguageStrings.find(std::to_string(id));
        if (external != LanguageStrings.end()) text = external->second;
    }
    // A missing message shows as nothing, never as a sign of error.
    if (text.empty()) text = FindMessage(language_, id).value_or("");
    const std::array<std::string_view, 5> parameters = {p1, p2, p3, p4, p5};
    for (std::size_t i = 0; i < parameters.size(); ++i)
        text = ReplaceAll(text, "%" + std::to_string(i + 1), parameters[i]);
    return ReplaceAll(text, "\\n", "\r\n");
}

void Messages::LoadLanguageFile() {
    if (state_.ExternalLanguageFile.empty() || !files_.FileExists(state_.ExternalLanguageFile))
        state_.EnableExternalLanguage = false;
    if (!state_.EnableExternalLanguage) return;
    ReadLanguageFile(files_, ansi_, state_.ExternalLanguageFile, LanguageStrings);
    if (LanguageStrings.empty()) state_.EnableExternalLanguage = false;
}

}  // namespace zefta
