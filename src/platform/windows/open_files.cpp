#include "platform/windows/open_files.h"

#include <algorithm>

#include "platform/windows/wide_text.h"

namespace qublet {
namespace {

constexpr std::size_t kMostAtOnce = 1u << 30;
constexpr const char* kOpenFile = "an open file";

std::int64_t Joined(DWORD high, DWORD low) {
  return static_cast<std::int64_t>(high) << 32 | low;
}

OVERLAPPED PlaceOf(std::int64_t offset) {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  return place;
}

// Not open unless it is a file on a disk.
Handle OpenFile(const std::wstring& place, DWORD access) {
  Handle file(CreateFileW(place.c_str(), access, kSharedWithAll, nullptr, OPEN_EXISTING, 0, nullptr));
  if (!file.IsOpen()) FailWithLastError("open", NarrowText(place));
  if (GetFileType(file.Get()) != FILE_TYPE_DISK) throw Failure("no file on a disk", NarrowText(place));
  return file;
}

class HandleInPlace : public InPlaceFile {
 public:
  explicit HandleInPlace(Handle file) : file_(std::move(file)) {}

  std::int64_t Size() const override { return SizeOf(file_); }
  void WriteAt(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
    WriteFullyAt(file_, offset, bytes);
  }
  void Truncate(std::int64_t size) override {
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = size;
    if (size < 0 || !SetFileInformationByHandle(file_.Get(), FileEndOfFileInfo, &end, sizeof end))
      FailWithLastError("cut", kOpenFile);
  }
  void Flush() override { FlushToDisk(file_); }

 private:
  Handle file_;
};

}  // namespace

FileVersion VersionOf(const Handle& file) {
  // Not every disk of a network knows all of it.
  BY_HANDLE_FILE_INFORMATION facts{};
  if (!GetFileInformationByHandle(file.Get(), &facts)) return {0, 0, SizeOf(file), 0, 0};
  FILE_BASIC_INFO times{};
  GetFileInformationByHandleEx(file.Get(), FileBasicInfo, &times, sizeof times);
  return {facts.dwVolumeSerialNumber, static_cast<std::uint64_t>(Joined(facts.nFileIndexHigh, facts.nFileIndexLow)),
          Joined(facts.nFileSizeHigh, facts.nFileSizeLow),
          Joined(facts.ftLastWriteTime.dwHighDateTime, facts.ftLastWriteTime.dwLowDateTime),
          times.ChangeTime.QuadPart};
}

HandleInput::HandleInput(Handle file) : file_(std::move(file)), version_(VersionOf(file_)) {}

std::size_t HandleInput::ReadAt(std::int64_t offset, std::span<std::uint8_t> buffer) {
  if (offset < 0) throw Failure("a negative place in a file");
  std::size_t done = 0;
  while (done < buffer.size()) {
    OVERLAPPED place = PlaceOf(offset + static_cast<std::int64_t>(done));
    const auto wanted = static_cast<DWORD>(std::min(buffer.size() - done, kMostAtOnce));
    DWORD count = 0;
    if (!ReadFile(file_.Get(), buffer.data() + done, wanted, &count, &place)) {
      if (GetLastError() == ERROR_HANDLE_EOF) break;
      FailWithLastError("read", kOpenFile);
    }
    if (count == 0) break;
    done += count;
  }
  return done;
}

std::unique_ptr<HandleInput> OpenInput(const std::wstring& place) {
  return std::make_unique<HandleInput>(OpenFile(place, GENERIC_READ));
}

std::unique_ptr<InPlaceFile> OpenForChange(const std::wstring& place) {
  const DWORD attributes = GetFileAttributesW(place.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
    throw Failure("read-only", NarrowText(place));
  return std::make_unique<HandleInPlace>(OpenFile(place, GENERIC_WRITE));
}

std::unique_ptr<InPlaceFile> MakePrivate(const std::wstring& place) {
  Handle file(CreateFileW(place.c_str(), GENERIC_WRITE, kSharedWithAll, nullptr, CREATE_NEW, 0, nullptr));
  if (!file.IsOpen()) FailWithLastError("make", NarrowText(place));
  return std::make_unique<HandleInPlace>(std::move(file));
}

std::int64_t SizeOf(const Handle& file) {
  LARGE_INTEGER size{};
  if (!GetFileSizeEx(file.Get(), &size)) FailWithLastError("measure", kOpenFile);
  return size.QuadPart;
}

void WriteFully(const Handle& file, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    DWORD count = 0;
    if (!WriteFile(file.Get(), bytes.data(), wanted, &count, nullptr)) FailWithLastError("write", kOpenFile);
    bytes = bytes.subspan(count);
  }
}

void WriteFullyAt(const Handle& file, std::int64_t offset, std::span<const std::uint8_t> bytes) {
  LARGE_INTEGER place{};
  place.QuadPart = offset;
  if (offset < 0 || !SetFilePointerEx(file.Get(), place, nullptr, FILE_BEGIN)) FailWithLastError("write", kOpenFile);
  WriteFully(file, bytes);
}

void FlushToDisk(const Handle& file) {
  if (!FlushFileBuffers(file.Get())) FailWithLastError("flush", kOpenFile);
}

}  // namespace qublet
