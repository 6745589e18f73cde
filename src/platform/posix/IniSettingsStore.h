#pragma once

#include <optional>
#include <string>

#include "platform/SettingsStore.h"
#include "platform/StoreOutcome.h"
#include "platform/posix/IniText.h"

namespace zefta {

/// A settings store in one text file that a person can edit. Read once; read again before it is changed. The
/// file is written whole beside the old one and swapped in, under a lock that other processes respect. One
/// that is there and can't be read, or holds more than a megabyte, gives no values and is left as it is.
/// A link stays one: the file that it leads to is the store.
class IniSettingsStore : public SettingsStore, public StoreOutcome {
  public:
    /// Nothing is created before the first change.
    explicit IniSettingsStore(std::string path);

    std::optional<std::string> GetValue(const std::string& section, const std::string& key) const override;
    void Apply(const std::vector<SettingChange>& changes) override;
    std::optional<RuntimeError> Failure() const override { return failure_; }

    /// Reads the file again, for a program that lives long beside others that change it.
    void ReadAgain();

  private:
    std::string path_;
    IniText text_;
    std::optional<RuntimeError> failure_;
};

}  // namespace zefta
