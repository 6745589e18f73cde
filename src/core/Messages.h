#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "core/MessageTable.h"

namespace zefta {

struct AppState;
class FileSystem;
class CodePage;

/// Every text that a person sees, by number: from the external language file while that is enabled and has
/// the number, else from the built-in table of the person's language.
class Messages {
  public:
    /// `state` holds ExternalLanguageFile and EnableExternalLanguage; loading may turn the latter off.
    Messages(Language language, AppState& state, FileSystem& files, const CodePage& ansi);

    /// The text with %1 to %5 replaced one after the other (a "%2" inside the first parameter is replaced
    /// too) and each "\n" turned into carriage return and line feed. "" for an unknown number.
    std::string GetMessage(std::int32_t id, std::string_view p1 = {}, std::string_view p2 = {},
                           std::string_view p3 = {}, std::string_view p4 = {}, std::string_view p5 = {});

    /// Fills LanguageStrings when EnableExternalLanguage is on. Turns it off when the file is missing or
    /// gives nothing.
    void LoadLanguageFile();

    Language BuiltInLanguage() const { return language_; }

    /// Texts of the external language file by the decimal text of their number. Empty until first needed.
    std::unordered_map<std::string, std::string> LanguageStrings;

  private:
    Language language_;
    AppState& state_;
    FileSystem& files_;
    const CodePage& ansi_;
};

}  // namespace zefta
