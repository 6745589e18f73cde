#include "support/FaultInjectingFileSystem.h"

#include <utility>

namespace zefta::test {

namespace {

class FaultInjectingFile : public BinaryFile {
  public:
    FaultInjectingFile(std::unique_ptr<BinaryFile> real, FaultCounter& faults)
        : real_(std::move(real)), faults_(faults) {}

    using BinaryFile::Write;

    std::size_t Read(std::span<std::byte> into) override {
        faults_.MayThrow();
        return real_->Read(into);
    }

    /// A write that fails has written half of its bytes, as one onto a full disk has.
    void Write(std::span<const std::byte> bytes) override {
        ++faults_.writes;
        if (faults_.NextFails()) {
            real_->Write(bytes.first(bytes.size() / 2));
            throw RuntimeError(faults_.plan.error);
        }
        real_->Write(bytes);
    }

    bool Seek(std::int32_t distance, SeekFrom from) override { return real_->Seek(distance, from); }
    std::int32_t Position() const override { return real_->Position(); }
    std::int32_t Size() const override { return real_->Size(); }
    bool IsReadOnly() const override { return real_->IsReadOnly(); }

    void SetEnd() override {
        ++faults_.writes;
        faults_.MayThrow();
        real_->SetEnd();
    }

    void Flush() override {
        faults_.MayThrow();
        real_->Flush();
    }

  private:
    std::unique_ptr<BinaryFile> real_;
    FaultCounter& faults_;
};

}  // namespace

std::unique_ptr<BinaryFile> FaultInjectingFileSystem::Wrap(std::unique_ptr<BinaryFile> file) {
    if (!file) return nullptr;
    return std::make_unique<FaultInjectingFile>(std::move(file), faults);
}

void FaultInjectingFileSystem::DeleteFile(const std::string& path, Force force) {
    faults.MayThrow();
    real_.DeleteFile(path, force);
}

void FaultInjectingFileSystem::MoveFile(const std::string& source, const std::string& target) {
    faults.MayThrow();
    real_.MoveFile(source, target);
}

void FaultInjectingFileSystem::ReplaceFile(const std::string& replacement, const std::string& target) {
    faults.MayThrow();
    real_.ReplaceFile(replacement, target);
}

std::unique_ptr<BinaryFile> FaultInjectingFileSystem::OpenRead(const std::string& path) {
    return faults.NextFails() ? nullptr : Wrap(real_.OpenRead(path));
}

std::unique_ptr<BinaryFile> FaultInjectingFileSystem::OpenReadOnly(const std::string& path) {
    return faults.NextFails() ? nullptr : Wrap(real_.OpenReadOnly(path));
}

std::unique_ptr<BinaryFile> FaultInjectingFileSystem::OpenCreate(const std::string& path) {
    return faults.NextFails() ? nullptr : Wrap(real_.OpenCreate(path));
}

std::unique_ptr<BinaryFile> FaultInjectingFileSystem::OpenNew(const std::string& path) {
    return faults.NextFails() ? nullptr : Wrap(real_.OpenNew(path));
}

void FaultInjectingFileSystem::SetReadOnly(const std::string& path, bool readOnly) {
    faults.MayThrow();
    real_.SetReadOnly(path, readOnly);
}

void FaultInjectingFileSystem::CopyAttributes(const std::string& source, const std::string& target) {
    faults.MayThrow();
    real_.CopyAttributes(source, target);
}

void FaultInjectingFileSystem::CreateFolder(const std::string& path) {
    faults.MayThrow();
    real_.CreateFolder(path);
}

void FaultInjectingFileSystem::DeleteFolder(const std::string& path, Force force) {
    faults.MayThrow();
    real_.DeleteFolder(path, force);
}

}  // namespace zefta::test
