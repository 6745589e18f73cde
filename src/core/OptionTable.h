#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/App.h"
#include "core/CommandLine.h"

namespace zefta {

/// The walk over the tokens, as the rows of the option table see it.
class OptionReader {
  public:
    OptionReader(App& theApp, const CommandLine& commandLine) : app(theApp), commandLine_(commandLine) {}

    App& app;

    /// Goes to the next token; false behind the last one.
    bool Next() { return ++index_ <= commandLine_.Count(); }

    std::string Item() const { return commandLine_.Item(index_); }
    std::string RawItem() const { return commandLine_.RawItem(index_); }

    /// The value that follows the option, which is then behind us; nothing at the end of the line or when the
    /// next token begins with "/".
    std::optional<std::string> TakeValue();

    /// The next token in lower case, if it could be taken as a value.
    std::optional<std::string> PeekValue() const;

  private:
    const CommandLine& commandLine_;
    std::int32_t index_ = 0;
};

enum class OptionGroup { Job, Files, Encoding, Wave, Tags, Run };

struct Option {
    /// The option and its aliases, in lower case, with blanks between them.
    std::string_view names;
    OptionGroup group;
    /// What follows it, for people: "[mask]", "N"; "" when nothing does.
    std::string_view value;
    std::string_view help;
    void (*apply)(OptionReader& reader);
};

/// Every option that the program knows, grouped.
std::span<const Option> OptionTable();

/// The option of that name or alias, given in lower case; null when there is none.
const Option* FindOption(std::string_view name);

/// Whether the token counts as one that begins with "/": an option, or an unknown word of that look.
bool BeginsWithSlash(const FileSystem& files, const std::string& token);

/// Whether the token is "/f" and one digit.
bool IsFormatOption(std::string_view token);

}  // namespace zefta
