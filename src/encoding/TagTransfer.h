#pragma once

#include <string>
#include <vector>

#include "encoding/LeftOut.h"
#include "encoding/TargetKind.h"
#include "platform/CodePage.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// The tag of a file that was re-encoded into another one.
struct TransferredTag {
    /// For the writers of the target's kind; Path is still to be set.
    ID3Tag tag;
    /// Names of the fields that have a value in the new tag, in the order of the table.
    std::vector<std::string> carried;
    std::vector<LeftOut> leftOut;
};

/// Maps the source's record to one of the target's kind, field by field: of two values for one field that of
/// ID3v2Extension goes first. The source's kind is told by IsOggVorbisFile and IsMpegPlusFile. The encoder is
/// this program, whoever encoded the source.
TransferredTag TransferTag(const ID3Tag& source, TargetKind target, const CodePage& ansi);

/// "carried artist, title; left out composer (reason)".
std::string DescribeTransfer(const TransferredTag& transferred);

}  // namespace zefta
