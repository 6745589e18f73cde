#pragma once

#include <string>

#include "core/App.h"
#include "encoding/CommandLines.h"

namespace zefta {

/// Trims the WAV file by a child of the program when the state says so, then runs the encoder that the state
/// selects, and returns when it has ended. Whether it worked shows only in the output file; but false when
/// the person had the encoder ended, and that file is half-made. A name without ".wav" is passed over: its
/// output would bear the name of its source.
bool EncodeFile(App& app, EncodeSource source);

/// The same into the folder of the source's destination. The path of what came out; "" when there is no
/// output, also when an old file of that name is there, and when the person had the encoder ended: what it
/// had made is deleted then.
std::string EncodeAnew(App& app, const EncodeSource& source);

/// The same for a WAV file and its own folder.
std::string EncodeInPlace(App& app, const std::string& folder, const std::string& name);

/// The same, and tags the output with what the name tells. False when there is no output.
bool EncodeAndTag(App& app, const std::string& folder, const std::string& name);

/// The job of /encode over FileSpec. A compressed file is asked about and re-encoded (ReEncode.h); from then
/// on DeleteAfterReCompress is False. RuntimeError 76 when the folder can't be entered.
void EncodeJob(App& app);

}  // namespace zefta
