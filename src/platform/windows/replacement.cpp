#include "platform/windows/replacement.h"

#include <cstdio>
#include <random>

#include "platform/file_content.h"
#include "platform/windows/drives.h"
#include "platform/windows/wide_text.h"

namespace qublet {
namespace {

std::size_t NameStart(const std::wstring& place) {
  return place.rfind(L'\\') + 1;
}

// ".qublet-next-" and sixteen digits, however long the target's name is.
std::wstring NameFor(std::wstring_view target) {
  std::uint64_t hash = 0xCBF29CE484222325;  // FNV-1a
  for (const wchar_t unit : target) hash = (hash ^ unit) * 0x100000001B3;
  wchar_t name[40];
  swprintf(name, std::size(name), L".qublet-next-%016llx", static_cast<unsigned long long>(hash));
  return name;
}

// Nobody may write or delete it while it is open, so what can be deleted was left by one that was killed.
Handle MakeNew(const std::wstring& place) {
  return Handle(CreateFileW(place.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                            FILE_ATTRIBUTE_NORMAL, nullptr));
}

FILE_BASIC_INFO BasicsOf(const Handle& file) {
  FILE_BASIC_INFO basics{};
  if (!GetFileInformationByHandleEx(file.Get(), FileBasicInfo, &basics, sizeof basics))
    FailWithLastError("examine", "an open file");
  return basics;
}

}  // namespace

std::wstring RandomName() {
  std::random_device chance;
  wchar_t name[40];
  swprintf(name, std::size(name), L".qublet-%08x%08x", chance(), chance());
  return name;
}

void RefuseDeviceName(const std::wstring& place) {
  const std::string name = NarrowText(place.substr(NameStart(place)));
  if (IsDeviceName(name)) throw Failure("the name stands for a device: " + name);
}

std::wstring FollowLinks(const std::wstring& place) {
  const DWORD attributes = GetFileAttributesW(place.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return place;
  const Handle open = OpenExisting(place, FILE_READ_ATTRIBUTES);
  if (!open.IsOpen()) FailWithLastError("follow", NarrowText(place));
  std::wstring real(32768, L'\0');
  const DWORD length = GetFinalPathNameByHandleW(open.Get(), real.data(), static_cast<DWORD>(real.size()), 0);
  if (length == 0 || length >= real.size()) return place;
  real.resize(length);
  return real;
}

bool RefusesWriting(const std::wstring& place) {
  const DWORD attributes = GetFileAttributesW(place.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) return true;
  if (OpenExisting(place, GENERIC_WRITE).IsOpen()) return false;
  const DWORD error = GetLastError();
  return error == ERROR_ACCESS_DENIED || error == ERROR_WRITE_PROTECT;
}

Replacement::Replacement(const std::wstring& place, Role role, HandleInput* source)
    : role_(role), source_(source), place_(role == Role::kMoved ? place : FollowLinks(place)) {
  if (source_ != nullptr) model_ = BasicsOf(source_->File());
  CheckPresent();
  OpenTemporary();
}

Replacement::~Replacement() {
  file_.Close();
  if (!temporary_.empty()) DeleteFileW(temporary_.c_str());
}

void Replacement::CheckPresent() {
  const std::string native = NarrowText(place_);
  if (place_.ends_with(L'\\')) throw Failure("a folder can't be replaced", native);
  const DWORD attributes = GetFileAttributesW(place_.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return RefuseDeviceName(place_);
  if (role_ == Role::kMoved) throw Failure("there is a file of this name already", native);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) throw Failure("a folder can't be replaced", native);
  if (RefusesWriting(place_)) throw Failure("read-only", native);
  present_ = attributes;
}

void Replacement::OpenTemporary() {
  const std::wstring folder = place_.substr(0, NameStart(place_));
  std::wstring temporary = folder + NameFor(place_.substr(NameStart(place_)));
  DeleteFileW(temporary.c_str());
  file_ = MakeNew(temporary);
  if (!file_.IsOpen() && GetFileAttributesW(temporary.c_str()) != INVALID_FILE_ATTRIBUTES) {
    temporary = folder + RandomName();  // another one writes the same target
    file_ = MakeNew(temporary);
  }
  if (!file_.IsOpen() && RefusesWriting(folder))
    throw FolderRefusesWriting("no file can be made in " + NarrowText(folder));
  if (!file_.IsOpen()) FailWithLastError("make", NarrowText(temporary));
  temporary_ = std::move(temporary);
}

void Replacement::WriteOut(std::span<const std::uint8_t> bytes) {
  WriteFully(file_, bytes);
}

void Replacement::CopyFrom(InputFile& source, std::int64_t offset, std::int64_t length) {
  AppendContent(source, offset, length, *this);
}

std::unique_ptr<InputFile> Replacement::OpenWritten() {
  FlushBuffer();
  return OpenInput(temporary_);
}

void Replacement::RefuseAnotherVersion() const {
  if (!only_) return;
  const Handle present = OpenExisting(place_, FILE_READ_ATTRIBUTES);
  if (!present.IsOpen() || VersionOf(present) != *only_) throw ChangedMeanwhile();
}

void Replacement::Commit() {
  if (temporary_.empty()) throw Failure("committed already", NarrowText(place_));
  FlushBuffer();
  FlushToDisk(file_);
  if (source_ != nullptr) {
    FILE_BASIC_INFO times = model_;
    times.FileAttributes = 0;  // as they are
    if (!SetFileInformationByHandle(file_.Get(), FileBasicInfo, &times, sizeof times))
      FailWithLastError("set the time of", NarrowText(place_));
  }
  file_.Close();
  RefuseAnotherVersion();
  PutInPlace();
  temporary_.clear();
  // The new version stands now, so attributes that can't be set are no failure any more.
  if (source_ != nullptr) SetFileAttributesW(place_.c_str(), model_.FileAttributes);
}

void Replacement::PutInPlace() {
  const bool present = present_ != INVALID_FILE_ATTRIBUTES;
  if (present &&
      ReplaceFileW(place_.c_str(), temporary_.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr)) {
    // Not every system does what it says here.
    if (GetFileAttributesW(place_.c_str()) != present_) SetFileAttributesW(place_.c_str(), present_);
    return;
  }
  // Not every file system can do that, and the present file may have gone.
  if (present) SetFileAttributesW(temporary_.c_str(), present_);
  const DWORD replace = role_ == Role::kMoved ? 0 : MOVEFILE_REPLACE_EXISTING;
  if (!MoveFileExW(temporary_.c_str(), place_.c_str(), replace | MOVEFILE_WRITE_THROUGH))
    FailWithLastError("replace", NarrowText(place_));
}

}  // namespace qublet
