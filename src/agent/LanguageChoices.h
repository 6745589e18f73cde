#pragma once

#include <string>
#include <vector>

#include "core/App.h"

namespace zefta {

/// A language that the person can switch to.
struct LanguageChoice {
    std::string caption;
    /// The language file; "" for the language that is built in.
    std::string path;
    /// In force now.
    bool isChosen = false;
};

/// The built-in language, then the files "*.lng" of the folder Languages beside the program, by name, then
/// the one in force when it lies elsewhere. The state has to hold the settings.
std::vector<LanguageChoice> LanguageChoices(App& app);

/// Puts the language into force for the next start of the program and, by its texts in the store, for the
/// agent at once. "" is the built-in language; which file stood there before stays known to the options.
/// RuntimeError when that can't be stored; the language stays what it was then.
void ChooseLanguage(App& app, const std::string& path);

}  // namespace zefta
