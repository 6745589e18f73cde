#pragma once

#include <string>

namespace zefta {

/// Opens a document or web page with the program that the person uses for it, and does not wait for it.
/// False when nothing could be started.
bool OpenDocument(const std::string& address);

}  // namespace zefta
