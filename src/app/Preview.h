#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "app/JobTable.h"
#include "core/App.h"

namespace zefta {

/// The arguments without "/preview", in any case; nothing when it is not among them.
std::optional<std::vector<std::string>> ArgumentsOfPreview(const std::vector<std::string>& arguments);

/// Runs the job that the arguments name on a file system that keeps every change to itself, telling its steps
/// to `output`. True when a box complained, be it that the job can't be previewed: it is not run then.
/// Nothing when the arguments name no job.
std::optional<bool> Preview(App& app, const std::vector<std::string>& arguments, std::ostream& output);

}  // namespace zefta
