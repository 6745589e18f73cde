#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "library/FileInformation.h"

namespace zefta {

/// A text of the information of a file, with the control that shows it.
struct InformationField {
    const char* control;
    /// Number of the message with its label.
    std::int32_t label;
    std::string& (*value)(FileInformation& information);
};

// The fields of each group of controls, in the order in which they are shown. The genre of ID3v1 is a number
// and none of them.

std::span<const InformationField> FieldsOfID3v1();
std::span<const InformationField> FieldsOfID3v2();
std::span<const InformationField> FieldsOfOgg();
std::span<const InformationField> FieldsOfMPEGplus();

}  // namespace zefta
