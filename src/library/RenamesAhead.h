#pragma once

#include <cstddef>
#include <exception>
#include <future>
#include <string>
#include <vector>

#include "library/RenameByTags.h"

namespace zefta {

/// The plans for the files of a folder, read by a second thread some files ahead of those that are being
/// renamed. Reading ahead is safe: giving one file a name never changes what another one is or holds.
class RenamesAhead {
  public:
    /// All of these outlive the object; `names` are read in their order.
    RenamesAhead(const FileReading& reading, const RenameRule& rule, const std::string& folder,
                 const std::vector<std::string>& names);

    /// The plan for the name of that number. Numbers only rise; some may be left out. What reading it failed
    /// with is thrown here.
    RenamePlan Take(std::size_t number);

  private:
    struct Reading {
        RenamePlan plan;
        std::exception_ptr failure;
    };
    using Readings = std::vector<Reading>;

    Reading Read(const std::string& name) const;
    Readings ReadRun(std::size_t first) const;
    void StartRun(std::size_t first);

    const FileReading& reading_;
    const RenameRule& rule_;
    const std::string& folder_;
    const std::vector<std::string>& names_;
    /// The files at hand, and which is their first one.
    Readings current_;
    std::size_t first_ = 0;
    /// Those behind them.
    std::future<Readings> next_;
};

}  // namespace zefta
