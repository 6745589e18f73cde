#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include "platform/posix/PosixFileSystem.h"

namespace zefta::test {

/// What was asked of files that were opened for reading only.
struct ReadCount {
    int opens = 0;
    int reads = 0;
    std::size_t bytes = 0;
};

/// The real file system, with a count of what is read.
class CountingFileSystem : public PosixFileSystem {
  public:
    ReadCount count;

    std::unique_ptr<BinaryFile> OpenReadOnly(const std::string& path) override {
        auto file = PosixFileSystem::OpenReadOnly(path);
        ++count.opens;
        if (!file) return nullptr;
        return std::make_unique<CountingFile>(std::move(file), count);
    }

  private:
    class CountingFile : public BinaryFile {
      public:
        CountingFile(std::unique_ptr<BinaryFile> real, ReadCount& count)
            : real_(std::move(real)), count_(count) {}

        using BinaryFile::Write;

        std::size_t Read(std::span<std::byte> into) override {
            const std::size_t done = real_->Read(into);
            ++count_.reads;
            count_.bytes += done;
            return done;
        }

        void Write(std::span<const std::byte> bytes) override { real_->Write(bytes); }
        bool Seek(std::int32_t distance, SeekFrom from) override { return real_->Seek(distance, from); }
        std::int32_t Position() const override { return real_->Position(); }
        std::int32_t Size() const override { return real_->Size(); }
        bool IsReadOnly() const override { return real_->IsReadOnly(); }
        void SetEnd() override { real_->SetEnd(); }
        void Flush() override { real_->Flush(); }

      private:
        std::unique_ptr<BinaryFile> real_;
        ReadCount& count_;
    };
};

}  // namespace zefta::test
