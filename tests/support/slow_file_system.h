#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/file_system.h"

namespace qublet {

// The file system of this machine on a slow disk: each opening of a file takes a while.
class SlowFileSystem : public FileSystem {
 public:
  explicit SlowFileSystem(std::chrono::milliseconds delay) : delay_(delay), real_(OpenFileSystem()) {}

  std::unique_ptr<InputFile> OpenForReading(const std::string& path) const override {
    std::this_thread::sleep_for(delay_);
    return real_->OpenForReading(path);
  }

  std::optional<unsigned> Attributes(const std::string& path) const override { return real_->Attributes(path); }
  void SetAttributes(const std::string& path, unsigned bits) const override { real_->SetAttributes(path, bits); }
  std::int64_t FileLength(const std::string& path) const override { return real_->FileLength(path); }
  bool IsReadOnly(const std::string& path) const override { return real_->IsReadOnly(path); }
  std::vector<FolderEntry> ReadFolder(const std::string& folder) const override { return real_->ReadFolder(folder); }
  std::optional<FolderIdentity> IdentityOf(const std::string& folder) const override {
    return real_->IdentityOf(folder);
  }
  std::unique_ptr<FileReplacement> BeginReplacement(const std::string& path) const override {
    return real_->BeginReplacement(path);
  }
  std::unique_ptr<InPlaceFile> OpenInPlace(const std::string& path) const override { return real_->OpenInPlace(path); }
  void Rename(const std::string& from, const std::string& to) const override { real_->Rename(from, to); }
  void DeleteFile(const std::string& path) const override { real_->DeleteFile(path); }
  void CopyFile(const std::string& source, const std::string& target) const override {
    real_->CopyFile(source, target);
  }
  void CreateFolder(const std::string& path) const override { real_->CreateFolder(path); }
  std::string CurrentFolder() const override { return real_->CurrentFolder(); }
  void SetCurrentFolder(const std::string& folder) override { real_->SetCurrentFolder(folder); }
  std::string ToNative(const std::string& path) const override { return real_->ToNative(path); }
  std::string FromNative(const std::string& native) const override { return real_->FromNative(native); }

 private:
  std::chrono::milliseconds delay_;
  std::unique_ptr<FileSystem> real_;
};

}  // namespace qublet
