#pragma once

#include <string>
#include <string_view>

namespace zefta {

/// A name that every common file system accepts: each of \ / : * ? " < > | and each control character is '_',
/// no dot or blank at the end, no name of a device, at most 251 bytes so that an extension fits behind it.
/// Dots inside are kept. The result applied again gives itself.
std::string MakeFileName(std::string_view text);

}  // namespace zefta
