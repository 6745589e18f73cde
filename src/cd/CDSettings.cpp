#include "cd/CDSettings.h"

#include <charconv>

#include "core/Strings.h"

namespace zefta {

namespace {

constexpr auto Section = "Settings";
constexpr auto DeviceKey = "CompressCD_Device";
constexpr auto ClientName = "EasyCD";

std::string TextOf(const App& app, const char* key, const std::string& usual) {
    const std::string text = Trim(app.userSettings.GetValue(Section, key).value_or(""));
    return text.empty() ? usual : text;
}

struct NumberKey {
    const char* key;
    std::int32_t usual;
    std::int32_t highest;
};

std::int32_t NumberOf(const App& app, const NumberKey& row) {
    const std::string text = TextOf(app, row.key, {});
    std::int32_t number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() && number > 0 && number <= row.highest ? number : row.usual;
}

}  // namespace

std::string DeviceOfCD(const App& app) {
    return TextOf(app, DeviceKey, {});
}

DatabaseAccess DatabaseOfCD(const App& app) {
    DatabaseAccess access;
    access.Server = TextOf(app, "CompressCD_Server", "gnudb.gnudb.org");
    access.Port = NumberOf(app, {"CompressCD_Port", 8880, 65535});
    access.ClientName = ClientName;
    access.UserAddress = TextOf(app, "CompressCD_UserAddress", "anonymous@localhost");
    access.Seconds = NumberOf(app, {"CompressCD_Timeout", 20, 600});
    return access;
}

void SaveDeviceOfCD(App& app, const std::string& device) {
    app.userSettings.Apply({{Section, DeviceKey, device}});
}

}  // namespace zefta
