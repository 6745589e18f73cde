#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zefta {

// Thunar keeps all custom actions in one file, uca.xml, among them those that the person has made: only the
// element of the action that is meant changes, and every other byte stays.

/// Whether the file holds an action of that unique-id.
bool HoldsThunarAction(std::string_view file, std::string_view id);

/// The file without the actions of that unique-id. The text as given where there is none, or where it can't
/// be told.
std::string WithoutThunarAction(std::string_view file, std::string_view id);

/// The file with the action at the end of the list, in the place of those of its unique-id; an empty text
/// gives a file of its own. Nothing when the text is no list of actions: it is the person's, and stays.
std::optional<std::string> WithThunarAction(std::string_view file, std::string_view id,
                                            std::string_view action);

}  // namespace zefta
