#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace qublet {

// Another file system behind the same interface; who derives from it overrides what is to be different.
class ForwardingFileSystem : public FileSystem {
 public:
  explicit ForwardingFileSystem(FileSystem& files) : files_(files) {}

  std::optional<unsigned> Attributes(const std::string& path) const override { return files_.Attributes(path); }
  void SetAttributes(const std::string& path, unsigned attributes) const override {
    files_.SetAttributes(path, attributes);
  }
  std::int64_t FileLength(const std::string& path) const override { return files_.FileLength(path); }
  bool IsReadOnly(const std::string& path) const override { return files_.IsReadOnly(path); }
  std::vector<FolderEntry> ReadFolder(const std::string& folder) const override { return files_.ReadFolder(folder); }
  std::optional<FolderIdentity> IdentityOf(const std::string& folder) const override {
    return files_.IdentityOf(folder);
  }
  std::optional<FileIdentity> IdentityOfFile(const std::string& path) const override {
    return files_.IdentityOfFile(path);
  }
  std::optional<std::string> LinkedFile(const std::string& path) const override { return files_.LinkedFile(path); }
  std::unique_ptr<RealNames> FindRealNames() const override { return files_.FindRealNames(); }
  std::unique_ptr<AbsentPlaces> FindAbsentPlaces() const override { return files_.FindAbsentPlaces(); }
  std::unique_ptr<InputFile> OpenForReading(const std::string& path) const override {
    return files_.OpenForReading(path);
  }
  std::unique_ptr<FileReplacement> BeginReplacement(const std::string& path) const override {
    return files_.BeginReplacement(path);
  }
  std::unique_ptr<ReplacementBatch> BeginBatch() const override { return files_.BeginBatch(); }
  std::unique_ptr<InPlaceFile> OpenInPlace(const std::string& path) const override {
    return files_.OpenInPlace(path);
  }
  std::unique_ptr<InPlaceFile> CreatePrivate(const std::string& path) const override {
    return files_.CreatePrivate(path);
  }
  void Rename(const std::string& from, const std::string& to) const override { files_.Rename(from, to); }
  void DeleteFile(const std::string& path) const override { files_.DeleteFile(path); }
  void CopyFile(const std::string& source, const std::string& target) const override {
    files_.CopyFile(source, target);
  }
  void CreateFolder(const std::string& path) const override { files_.CreateFolder(path); }
  std::string CurrentFolder() const override { return files_.CurrentFolder(); }
  void SetCurrentFolder(const std::string& folder) override { files_.SetCurrentFolder(folder); }
  std::string ToNative(const std::string& path) const override { return files_.ToNative(path); }
  std::string FromNative(const std::string& native) const override { return files_.FromNative(native); }

 protected:
  FileSystem& files_;
};

}  // namespace qublet
