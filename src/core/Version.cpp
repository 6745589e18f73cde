#include "core/Version.h"

#include "core/Strings.h"

namespace zefta {

const VersionRecord& ProgramVersion() {
    static constexpr VersionRecord record{
        .Title = "Kestrin Zeftaworks",
        .CompanyName = "Kestrin",
        .Major = 2,
        .Minor = 0,
        .Revision = 1,
        .Comments = "",
        .LegalCopyright = "Copyright \u00A9 2026 Kestrin",
    };
    return record;
}

std::string VersionText(const VersionRecord& version) {
    const std::string minor = std::to_string(version.Minor);
    std::string text = std::to_string(version.Major) + "." + (minor.size() < 2 ? "0" + minor : minor);
    if (!version.Comments.empty()) text.append(" ").append(version.Comments);
    return text + " (Build " + std::to_string(version.Revision) + ")";
}

}  // namespace zefta
