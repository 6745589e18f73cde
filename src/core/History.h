#pragma once

#include <string>
#include <vector>

#include "platform/SettingsStore.h"

namespace zefta {

/// How many entries of a history are kept.
inline constexpr std::size_t HistoryLimit = 25;

// The lists of the path box and of the template boxes, newest first as the boxes show them.

std::vector<std::string> LoadRecentFolders(const SettingsStore& store);
std::vector<std::string> LoadRenameTemplates(const SettingsStore& store);

/// The templates with one more in front, unless it is empty or among them.
std::vector<std::string> WithTemplate(std::vector<std::string> templates, const std::string& added);

/// The first HistoryLimit entries are written, in one step; entries of a longer former list go.
void SaveRecentFolders(SettingsStore& store, const std::vector<std::string>& folders);
void SaveRenameTemplates(SettingsStore& store, const std::vector<std::string>& templates);

}  // namespace zefta
