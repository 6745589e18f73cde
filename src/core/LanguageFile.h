#pragma once

#include <string>
#include <unordered_map>

#include "core/App.h"

namespace zefta {

/// Adds the entries of a language file ("NNNNN = text" lines) to the map, under the decimal text of their
/// numbers. A file that can't be read, or that is larger than 4 MiB, adds nothing; a line of more than 8 KiB
/// is passed over.
void ReadLanguageFile(FileSystem& files, const CodePage& ansi, const std::string& path,
                      std::unordered_map<std::string, std::string>& strings);

/// Writes "zefta.lng" to the current folder, over any such file: all messages of the built-in language, for
/// translators. Says nothing when the file can't be created.
void WriteLanguageTemplate(App& app);

/// Looks for every message in the language strings: a warning box for each that is missing, until the person
/// has enough of them, and the agent's texts are stored anew. True when something was missing.
bool CheckLanguageFile(App& app);

}  // namespace zefta
