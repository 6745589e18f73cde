#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "platform/FileSystem.h"
#include "platform/overlay/OverlayContent.h"

namespace zefta {

/// A file or folder of the overlay.
struct OverlayNode {
    std::string name;
    bool isFolder = false;
    bool isSpecial = false;
    /// Where it lies on disk; "" for what would be made.
    std::string basePath;
    /// What would be written to it; null for a file that is as it stands on disk.
    std::shared_ptr<OverlayContent> content;
    /// Where it differs from the disk.
    std::optional<bool> isReadOnly;
    /// Another one each time that the file is made or replaced; 0 for the one on disk.
    std::int64_t generation = 0;
};

/// The entries of one folder as they would be, in the order of the disk with new ones behind.
class OverlayFolder {
  public:
    /// The entry of exactly that name, else the first in byte order that differs from it in case; null when
    /// there is none.
    OverlayNode* Find(const std::string& name);

    /// Whether an entry other than `except` has the name in any case.
    bool IsTaken(const std::string& name, const OverlayNode* except = nullptr);

    OverlayNode& Add(OverlayNode node);
    void Erase(const OverlayNode& node);
    void Rename(OverlayNode& node, const std::string& name);

    std::vector<FolderEntry> Entries() const;

  private:
    using Nodes = std::map<std::uint64_t, OverlayNode>;
    using Index = std::unordered_multimap<std::string, std::uint64_t>;

    Index::iterator IndexOf(const OverlayNode& node);

    Nodes nodes_;
    Index byLowerCase_;
    std::uint64_t next_ = 0;
};

}  // namespace zefta
