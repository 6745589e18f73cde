#pragma once

#include <string>

#include "core/App.h"
#include "platform/DiscDatabase.h"

namespace zefta {

/// Where discs are read and who knows their names, as the keys of section "Settings" of the user's store say:
///
///     CompressCD_Device       drive or image; "" (the default) is the first drive
///     CompressCD_Server       host of the database, "gnudb.gnudb.org"
///     CompressCD_Port         8880
///     CompressCD_UserAddress  e-mail address that the database is told, "anonymous@localhost"
///     CompressCD_Timeout      seconds that an answer is waited for, 1 to 600; 20
///
/// A value that is absent or can't be meant gives the default.
std::string DeviceOfCD(const App& app);
DatabaseAccess DatabaseOfCD(const App& app);

/// The only one that a dialog changes.
void SaveDeviceOfCD(App& app, const std::string& device);

}  // namespace zefta
