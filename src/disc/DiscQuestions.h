#pragma once

#include <string>
#include <vector>

#include "platform/DiscDatabase.h"

namespace zefta {

// The questions to a database of discs. Each connects anew and waits for the answer.

DatabaseReply<std::vector<DatabaseMatch>> QueryDatabase(const DatabaseAccess& access,
                                                        const DiscContents& disc);

DatabaseReply<DatabaseAlbum> ReadDatabase(const DatabaseAccess& access, const DatabaseMatch& match);

}  // namespace zefta
