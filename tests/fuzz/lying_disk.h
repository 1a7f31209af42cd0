#pragma once

#include <memory>
#include <utility>

#include "platform/forwarding_file_system.h"
#include "support/memory_file.h"

namespace qublet {

// How a file differs from what it was when it was opened, and what goes wrong.
struct Lies {
  enum class Read { kTrue, kFails, kEndsEarly, kShrinks };

  std::int64_t claimed = 0;  // size in bytes
  Read read = Read::kTrue;
  std::size_t at_read = 0;   // at which read
  std::size_t left = 0;      // bytes of a file that shrinks
  std::size_t at_write = 0;  // which change of the disk fails, from 1; 0 for none
  bool refuses = false;      // the folder, so that the file is changed in place
};

// A disk with one file on it, in memory.
class LyingDisk : public ForwardingFileSystem {
 public:
  LyingDisk(FileSystem& files, Bytes content, const Lies& lies)
      : ForwardingFileSystem(files), lies_(lies), content_(std::move(content)) {}

  const Bytes& Content() const { return content_; }

  std::unique_ptr<InputFile> OpenForReading(const std::string&) const override {
    return std::make_unique<Reader>(*this);
  }
  std::unique_ptr<FileReplacement> BeginReplacement(const std::string&) const override {
    if (lies_.refuses) throw FolderRefusesWriting("not here");
    return std::make_unique<Replacement>(*this);
  }
  std::unique_ptr<InPlaceFile> OpenInPlace(const std::string&) const override {
    Change();
    return std::make_unique<InPlace>(*this);
  }

 private:
  class Reader : public InputFile {
   public:
    explicit Reader(const LyingDisk& disk) : disk_(disk) {}
    std::int64_t Size() const override { return disk_.lies_.claimed; }
    std::size_t ReadAt(std::int64_t offset, std::span<std::uint8_t> buffer) override {
      const bool now = reads_++ == disk_.lies_.at_read;
      if (now && disk_.lies_.read == Lies::Read::kFails) throw Failure("input error");
      if (now && disk_.lies_.read == Lies::Read::kEndsEarly) buffer = buffer.first(buffer.size() / 2);
      if (now && disk_.lies_.read == Lies::Read::kShrinks)
        disk_.content_.resize(std::min(disk_.content_.size(), disk_.lies_.left));
      return MemoryFile(disk_.content_).ReadAt(offset, buffer);
    }

   private:
    const LyingDisk& disk_;
    std::size_t reads_ = 0;
  };

  class Replacement : public FileReplacement {
   public:
    explicit Replacement(const LyingDisk& disk) : disk_(disk) {}
    void Write(std::span<const std::uint8_t> bytes) override {
      disk_.Change();
      written_.insert(written_.end(), bytes.begin(), bytes.end());
    }
    void CopyFrom(InputFile& source, std::int64_t offset, std::int64_t length) override {
      disk_.Change();
      Bytes bytes(static_cast<std::size_t>(std::min(length, source.Size())));
      if (source.ReadAt(offset, bytes) != static_cast<std::size_t>(length)) throw Failure("it ends early");
      written_.insert(written_.end(), bytes.begin(), bytes.end());
    }
    std::unique_ptr<InputFile> OpenWritten() override { return std::make_unique<MemoryFile>(written_); }
    void Commit() override {
      disk_.Change();
      disk_.content_ = written_;
    }

   private:
    const LyingDisk& disk_;
    Bytes written_;
  };

  class InPlace : public InPlaceFile {
   public:
    explicit InPlace(const LyingDisk& disk) : disk_(disk) {}
    std::int64_t Size() const override { return static_cast<std::int64_t>(disk_.content_.size()); }
    // A write that fails has got as far as half of it.
    void WriteAt(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
      const bool fails = disk_.FailsNow();
      if (fails) bytes = bytes.first(bytes.size() / 2);
      const auto start = static_cast<std::size_t>(offset);
      disk_.content_.resize(std::max(disk_.content_.size(), start + bytes.size()));
      std::copy(bytes.begin(), bytes.end(), disk_.content_.begin() + offset);
      if (fails) throw Failure("output error");
    }
    void Truncate(std::int64_t size) override {
      disk_.Change();
      disk_.content_.resize(static_cast<std::size_t>(size));
    }
    void Flush() override { disk_.Change(); }

   private:
    const LyingDisk& disk_;
  };

  bool FailsNow() const { return ++changes_ == lies_.at_write; }
  void Change() const {
    if (FailsNow()) throw Failure("output error");
  }

  const Lies lies_;
  mutable Bytes content_;
  mutable std::size_t changes_ = 0;
};

}  // namespace qublet
