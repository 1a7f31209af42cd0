#include "platform/file_system.h"

#include "platform/drive_form.h"
#include "platform/windows/absent_places.h"
#include "platform/windows/drives.h"
#include "platform/windows/move.h"
#include "platform/windows/open_files.h"
#include "platform/windows/replacement.h"
#include "platform/windows/user_folders.h"
#include "platform/windows/wide_text.h"

namespace qublet {
namespace {

constexpr unsigned kKnownBits = kReadOnly | kHidden | kSystem | kFolder | kArchive;
constexpr unsigned kChangeable = kReadOnly | kHidden | kSystem | kArchive;

std::string WithBackslashes(std::string path) {
  for (char& character : path)
    if (character == '/') character = '\\';
  return path;
}

struct Status {
  DWORD attributes = 0;
  std::int64_t size = 0;
};

std::int64_t Joined(DWORD high, DWORD low) {
  return static_cast<std::int64_t>((std::uint64_t{high} << 32) | low);
}

// Of what a path leads to, links followed.
std::optional<Status> FindStatus(const std::wstring& place) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (!GetFileAttributesExW(place.c_str(), GetFileExInfoStandard, &data)) return std::nullopt;
  if ((data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
    return Status{data.dwFileAttributes, Joined(data.nFileSizeHigh, data.nFileSizeLow)};
  BY_HANDLE_FILE_INFORMATION real{};
  const Handle open = OpenExisting(place, FILE_READ_ATTRIBUTES);
  if (!open.IsOpen() || !GetFileInformationByHandle(open.Get(), &real)) return std::nullopt;
  return Status{real.dwFileAttributes, Joined(real.nFileSizeHigh, real.nFileSizeLow)};
}

bool IsFolder(const Status& status) {
  return (status.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// The names of a folder, one after the other.
class Search {
 public:
  explicit Search(const std::wstring& pattern)
      : search_(FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &found_, FindExSearchNameMatch, nullptr,
                                 FIND_FIRST_EX_LARGE_FETCH)) {}
  ~Search() {
    if (IsOpen()) FindClose(search_);
  }
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;

  bool IsOpen() const { return search_ != INVALID_HANDLE_VALUE; }
  const WIN32_FIND_DATAW& Found() const { return found_; }
  // False at the end, and when something went wrong (GetLastError).
  bool Next() { return FindNextFileW(search_, &found_) != 0; }

 private:
  WIN32_FIND_DATAW found_{};
  HANDLE search_;
};

class WindowsFileSystem : public FileSystem {
 public:
  WindowsFileSystem() : drives_(EnvironmentText(L"QUBLET_DOSDEVICES")) {
    // A drive without a disk in it is an error like any other, not a question to the user.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    // Where no path leads, relative ones would mean something that can't be said.
    if (!Guarded([&] { ReadCurrentFolder(); })) ResumeNext([&] { SetCurrentFolder("c:\\"); });
  }

  std::optional<unsigned> Attributes(const std::string& path) const override;
  void SetAttributes(const std::string& path, unsigned attributes) const override;
  std::int64_t FileLength(const std::string& path) const override;
  bool IsReadOnly(const std::string& path) const override;
  std::vector<FolderEntry> ReadFolder(const std::string& folder) const override;
  std::optional<FolderIdentity> IdentityOf(const std::string& folder) const override;
  std::optional<FileIdentity> IdentityOfFile(const std::string& path) const override;
  std::unique_ptr<AbsentPlaces> FindAbsentPlaces() const override {
    return std::make_unique<UnreachableRoots>(*this);
  }

  std::unique_ptr<InputFile> OpenForReading(const std::string& path) const override {
    return OpenInput(PlaceOf(path));
  }
  std::unique_ptr<FileReplacement> BeginReplacement(const std::string& path) const override {
    return std::make_unique<Replacement>(PlaceOf(path));
  }
  std::unique_ptr<InPlaceFile> OpenInPlace(const std::string& path) const override {
    return OpenForChange(PlaceOf(path));
  }
  std::unique_ptr<InPlaceFile> CreatePrivate(const std::string& path) const override {
    return MakePrivate(PlaceOf(path));
  }

  void Rename(const std::string& from, const std::string& to) const override { Move(PlaceOf(from), PlaceOf(to)); }
  void DeleteFile(const std::string& path) const override;
  void CopyFile(const std::string& source, const std::string& target) const override;
  void CreateFolder(const std::string& path) const override;

  std::string CurrentFolder() const override { return current_; }
  void SetCurrentFolder(const std::string& folder) override;
  std::string ToNative(const std::string& path) const override;
  std::string FromNative(const std::string& native) const override;

 private:
  std::string Absolute(const std::string& native) const;
  std::wstring PlaceOf(const std::string& path) const;
  Status StatusAt(const std::string& path) const;
  void ReadCurrentFolder();

  Drives drives_;
  std::string current_;         // drive form
  std::string current_native_;  // the same place
};

// A native path as it is, a relative one with the current folder ahead of it.
std::string WindowsFileSystem::Absolute(const std::string& native) const {
  if (native.empty()) throw Failure("a path is empty");
  if (native.find('\0') != native.npos) throw Failure("a path holds a zero character");
  if (HasDrive(native) || NamesServer(native)) return native;
  if (!IsSeparator(native[0])) return current_native_ + '\\' + native;
  if (HasDrive(current_)) return drives_.RootOf(current_[0]) + native;
  const std::size_t server = current_.find('\\', 2);
  return current_.substr(0, current_.find('\\', server + 1)) + native;
}

// In the form that knows no limit of length and no names of devices. A trailing "\" asks for a folder and stays.
std::wstring WindowsFileSystem::PlaceOf(const std::string& path) const {
  const std::string plain = PlainNativePath(Absolute(ToNative(path)));
  std::wstring place = NamesServer(plain) ? L"\\\\?\\UNC" + WideText(plain.substr(1)) : L"\\\\?\\" + WideText(plain);
  if (IsSeparator(path.back()) && !place.ends_with(L'\\')) place += L'\\';
  return place;
}

Status WindowsFileSystem::StatusAt(const std::string& path) const {
  const auto status = FindStatus(PlaceOf(path));
  if (!status) throw Failure("no such file or folder", path);
  return *status;
}

std::optional<unsigned> WindowsFileSystem::Attributes(const std::string& path) const {
  std::optional<unsigned> bits;
  ResumeNext([&] { bits = StatusAt(path).attributes & kKnownBits; });
  return bits;
}

void WindowsFileSystem::SetAttributes(const std::string& path, unsigned attributes) const {
  StatusAt(path);
  const DWORD wanted = attributes & kChangeable;
  if (!SetFileAttributesW(FollowLinks(PlaceOf(path)).c_str(), wanted != 0 ? wanted : FILE_ATTRIBUTE_NORMAL))
    FailWithLastError("set attributes of", path);
}

std::int64_t WindowsFileSystem::FileLength(const std::string& path) const {
  const Status status = StatusAt(path);
  if (IsFolder(status)) throw Failure("is a folder", path);
  return status.size;
}

bool WindowsFileSystem::IsReadOnly(const std::string& path) const {
  return (StatusAt(path).attributes & FILE_ATTRIBUTE_READONLY) != 0 || RefusesWriting(PlaceOf(path));
}

std::vector<FolderEntry> WindowsFileSystem::ReadFolder(const std::string& folder) const {
  std::wstring place = PlaceOf(folder);
  const auto status = FindStatus(place);
  if (!status || !IsFolder(*status)) throw Failure("no such file or folder", folder);
  if (!place.ends_with(L'\\')) place += L'\\';

  std::vector<FolderEntry> entries;
  Search search(place + L'*');
  if (!search.IsOpen()) {
    if (GetLastError() == ERROR_FILE_NOT_FOUND) return entries;  // the empty root of a drive
    FailWithLastError("list", folder);
  }
  do {
    const WIN32_FIND_DATAW& found = search.Found();
    const std::wstring name = found.cFileName;
    if (name == L"." || name == L"..") continue;
    const bool leads_nowhere =
        (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && !FindStatus(place + name);
    if (leads_nowhere) continue;
    entries.push_back({NarrowText(name), (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
                       (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0});
  } while (search.Next());
  if (GetLastError() != ERROR_NO_MORE_FILES) FailWithLastError("list", folder);
  return entries;
}

std::optional<FolderIdentity> WindowsFileSystem::IdentityOf(const std::string& folder) const {
  std::optional<FolderIdentity> identity;
  ResumeNext([&] {
    const Handle open = OpenExisting(PlaceOf(folder), FILE_READ_ATTRIBUTES);
    BY_HANDLE_FILE_INFORMATION facts{};
    if (!open.IsOpen() || !GetFileInformationByHandle(open.Get(), &facts)) return;
    if ((facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return;
    identity = FolderIdentity{facts.dwVolumeSerialNumber,
                              static_cast<std::uint64_t>(Joined(facts.nFileIndexHigh, facts.nFileIndexLow))};
  });
  return identity;
}

std::optional<FileIdentity> WindowsFileSystem::IdentityOfFile(const std::string& path) const {
  std::optional<FileIdentity> identity;
  ResumeNext([&] {
    const Handle open(CreateFileW(PlaceOf(path).c_str(), FILE_READ_ATTRIBUTES,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    BY_HANDLE_FILE_INFORMATION facts{};
    if (!open.IsOpen() || !GetFileInformationByHandle(open.Get(), &facts)) return;
    if ((facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return;
    identity = FileIdentity{static_cast<std::uint64_t>(Joined(facts.nFileIndexHigh, facts.nFileIndexLow)),
                            Joined(facts.ftCreationTime.dwHighDateTime, facts.ftCreationTime.dwLowDateTime)};
  });
  return identity;
}

void WindowsFileSystem::DeleteFile(const std::string& path) const {
  if (!DeleteFileW(PlaceOf(path).c_str())) FailWithLastError("delete", path);
}

void WindowsFileSystem::CopyFile(const std::string& source, const std::string& target) const {
  const auto input = OpenInput(PlaceOf(source));
  Replacement copy(PlaceOf(target), Replacement::Role::kCopy, input.get());
  copy.CopyFrom(*input, 0, input->Size());
  copy.Commit();
}

void WindowsFileSystem::CreateFolder(const std::string& path) const {
  const std::wstring place = PlaceOf(path);
  RefuseDeviceName(place);
  if (!CreateDirectoryW(place.c_str(), nullptr)) FailWithLastError("make folder", path);
}

void WindowsFileSystem::ReadCurrentFolder() {
  const DWORD room = GetCurrentDirectoryW(0, nullptr);
  std::wstring folder(room, L'\0');
  folder.resize(GetCurrentDirectoryW(room, folder.data()));
  current_native_ = PlainNativePath(NarrowText(folder));
  current_ = drives_.TextOf(current_native_);
}

void WindowsFileSystem::SetCurrentFolder(const std::string& folder) {
  const std::string native = PlainNativePath(Absolute(ToNative(folder)));
  if (!SetCurrentDirectoryW(WideText(native).c_str())) FailWithLastError("enter", folder);
  current_native_ = native;
  current_ = drives_.TextOf(native);
}

std::string WindowsFileSystem::ToNative(const std::string& path) const {
  if (path.empty()) throw Failure("a path is empty");
  if (path.find('\0') != path.npos) throw Failure("a path holds a zero character");
  const std::string native = WithBackslashes(path);
  if (NamesServer(native)) return native;
  if (HasDrive(native)) {
    const std::string rest = native.substr(2);
    return drives_.RootOf(native[0]) + (rest.starts_with('\\') ? "" : "\\") + rest;
  }
  return native[0] == '\\' && HasDrive(current_) ? drives_.RootOf(current_[0]) + native : native;
}

std::string WindowsFileSystem::FromNative(const std::string& native) const {
  return drives_.TextOf(PlainNativePath(Absolute(native)));
}

}  // namespace

std::unique_ptr<FileSystem> OpenFileSystem() {
  return std::make_unique<WindowsFileSystem>();
}

}  // namespace qublet
