#pragma once

#include <string>

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"

namespace zefta {

/// Makes a folder the current one while it lives. RuntimeError 76 when it can't be entered.
class CurrentFolderDuring {
  public:
    CurrentFolderDuring(FileSystem& files, const std::string& folder)
        : files_(files), former_(files.CurrentFolder()) {
        files_.SetCurrentFolder(folder);
    }
    ~CurrentFolderDuring() {
        try {
            files_.SetCurrentFolder(former_);
        } catch (const RuntimeError&) {
            // It is gone; where we are is as good as any other place.
        }
    }
    CurrentFolderDuring(const CurrentFolderDuring&) = delete;
    CurrentFolderDuring& operator=(const CurrentFolderDuring&) = delete;

  private:
    FileSystem& files_;
    std::string former_;
};

}  // namespace zefta
