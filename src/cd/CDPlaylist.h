#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace zefta {

/// The playlist of a job that makes files one by one: what is done so far stands in it at every moment.
class CDPlaylist {
  public:
    /// A new list is made at once, empty. One that is there stays as it is until a line is added. Run-time
    /// failures are those of TextTarget.
    CDPlaylist(FileSystem& files, std::string path);

    /// The name of a file, as bytes.
    void Add(const std::string& name);

  private:
    FileSystem& files_;
    std::string path_;
    std::string lines_;
};

}  // namespace zefta
