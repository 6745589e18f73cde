#pragma once

#include <string_view>

#include "tags/ID3Tag.h"

namespace zefta {

/// The tags that the name of a file holds, read by a template: its place in ReverseTemplates. The path is the
/// full one, as text (CodePage::ToText). The track number goes to ID3v2Extension.TrackNumber, as text with
/// its leading zeros; the mix goes to Comment. A field that the template looks for and the name lacks is a
/// single blank. Empty for a place that no template has.
ID3Tag GetTagsFromFileName(std::string_view path, int templateIndex);

}  // namespace zefta
