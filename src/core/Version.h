#pragma once

#include <string>
#include <string_view>

namespace zefta {

/// The version record of the program.
struct VersionRecord {
    std::string_view Title;
    std::string_view CompanyName;
    int Major;
    int Minor;
    int Revision;
    std::string_view Comments;
    std::string_view LegalCopyright;
};

const VersionRecord& ProgramVersion();

/// "2.00 (Build 1)"; comments stand between the number and the build.
std::string VersionText(const VersionRecord& version = ProgramVersion());

/// The caption of every box and the name that files carry as their encoder's.
inline std::string ApplicationTitle() {
    return std::string(ProgramVersion().Title);
}

}  // namespace zefta
