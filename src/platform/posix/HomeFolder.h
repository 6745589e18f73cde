#pragma once

#include <string>

namespace zefta {

/// The person's home folder: HOME, or that of the account when HOME is not set; "/" for an account without
/// one. Variables that hold no absolute path count as not set.
std::string HomeFolder();

/// Where the person's programs keep their settings: XDG_CONFIG_HOME, or .config of the home folder.
std::string ConfigFolder();

/// Where they keep what is no setting: XDG_DATA_HOME, or .local/share of the home folder.
std::string DataFolder();

}  // namespace zefta
