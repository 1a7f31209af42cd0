#include "platform/settings_store.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <optional>
#include <thread>
#include <utility>

#include "platform/failure.h"
#include "platform/linux/open_files.h"
#include "platform/linux/replacement.h"
#include "platform/linux/settings_text.h"
#include "platform/linux/small_files.h"
#include "platform/linux/user_folders.h"

namespace qublet {
namespace {

constexpr std::int64_t kMostBytes = 4'000'000;
constexpr auto kLockPatience = std::chrono::milliseconds(3000);

constexpr auto kNoPatience = std::chrono::milliseconds(0);
constexpr auto kLaterPatience = std::chrono::milliseconds(100);

// A file that nobody else can open, so that nobody else can hold it. Nothing when another one stands there.
std::optional<Descriptor> OpenOwnLock(const std::string& native) {
  constexpr int kFlags = O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
  Descriptor file(Uninterrupted([&] { return open(native.c_str(), kFlags, 0600); }));
  if (!file.IsOpen() && errno != EACCES && errno != ELOOP) FailWithErrno("open", native);
  if (!file.IsOpen()) return std::nullopt;
  const struct stat status = StatusOf(file);
  if (!S_ISREG(status.st_mode) || !IsThisUsers(status)) return std::nullopt;
  if ((status.st_mode & 07777) != 0600) fchmod(file.Get(), 0600);
  return file;
}

// The folder is this user's, so what another one has put there may go.
Descriptor OpenLock(const std::string& native) {
  std::optional<Descriptor> file = OpenOwnLock(native);
  if (!file && unlink(native.c_str()) != 0) FailWithErrno("replace", native);
  if (!file) file = OpenOwnLock(native);
  if (!file) throw Failure("belongs to another user", native);
  return std::move(*file);
}

// Held while one process reads, changes and replaces a file. It ends with the process, however that ends.
class FileLock {
 public:
  using Time = std::chrono::steady_clock::time_point;

  // Throws Failure when another process keeps the lock until `end`.
  FileLock(const std::string& native, Time end) {
    bool taken = false;
    do {
      file_ = OpenLock(native);
      taken = Take(native, end);
      // One that has been replaced meanwhile keeps nobody out.
    } while (taken && !StandsAt(AT_FDCWD, native, file_));
  }

 private:
  // False on a file system without locks: better than no settings.
  bool Take(const std::string& native, Time end) const {
    while (flock(file_.Get(), LOCK_EX | LOCK_NB) != 0) {
      if (errno == ENOLCK || errno == EOPNOTSUPP) return false;
      if (errno != EWOULDBLOCK && errno != EINTR) FailWithErrno("lock", native);
      if (std::chrono::steady_clock::now() > end) throw Failure("locked by another process", native);
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
  }

  Descriptor file_;
};

// What changes when a file changes. All zero for a file that isn't there.
struct Stamp {
  dev_t device = 0;
  ino_t number = 0;
  std::int64_t size = 0;
  std::int64_t written = 0;  // nanoseconds since 1970
  std::int64_t changed = 0;
  bool operator==(const Stamp&) const = default;
};

std::int64_t Nanoseconds(const struct timespec& time) {
  return time.tv_sec * std::int64_t{1'000'000'000} + time.tv_nsec;
}

Stamp StampOf(const struct stat& status) {
  return {status.st_dev, status.st_ino, status.st_size, Nanoseconds(status.st_mtim), Nanoseconds(status.st_ctim)};
}

// One file as it was read.
struct Snapshot {
  Stamp stamp;
  bool settled = false;  // an equal stamp means an equal file
  SettingsText text;
};

Snapshot ReadSnapshot(const std::string& native) {
  struct stat status {};
  if (stat(native.c_str(), &status) != 0 && errno == ENOENT) return {{}, true, SettingsText()};

  const std::unique_ptr<DescriptorInput> input = OpenInput(native, Whose::kOwn);
  const Stamp stamp = StampOf(StatusOf(input->File()));
  SettingsText text(ContentOf(*input, kMostBytes));

  // A second change right after this one could leave the same times, as coarse as some file systems keep them.
  using namespace std::chrono;
  const auto now = duration_cast<nanoseconds>(system_clock::now().time_since_epoch());
  const bool settled = now - nanoseconds(std::max(stamp.written, stamp.changed)) > seconds(2);
  return {stamp, settled, std::move(text)};
}

// "QUBLET2021" as "QUBLET2021.conf"; what can't stand in a file name is written as "%" and two digits.
std::string FileNameOf(const std::string& application) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string name;
  for (const char c : application) {
    const auto code = static_cast<unsigned char>(c);
    if (c != '/' && c != '%' && code >= 0x20 && (c != '.' || !name.empty())) {
      name += c;
    } else {
      name += {'%', kDigits[code / 16], kDigits[code % 16]};
    }
  }
  return name + ".conf";
}

// One text file for each application in one folder, with a lock file beside it that stays there.
class FileSettingsStore : public SettingsStore {
 public:
  explicit FileSettingsStore(std::string folder) : folder_(std::move(folder)) {}

  std::string GetSetting(const std::string& application, const std::string& section,
                         const std::string& key) const override {
    std::string value;
    ResumeNext([&] { value = Current(application).Get(section, key); });
    return value;
  }

  std::vector<Setting> AllSettings(const std::string& application) const override {
    std::vector<Setting> settings;
    ResumeNext([&] { settings = Current(application).All(); });
    return settings;
  }

  void SaveSettings(const std::string& application, const std::vector<Setting>& settings) override {
    const std::string native = PathOf(application);
    const FileLock lock = Lock(native);
    SettingsText text = ReadSnapshot(native).text;
    const std::string before = text.Text();
    for (const Setting& setting : settings) text.Set(setting);
    if (static_cast<std::int64_t>(text.Text().size()) > kMostBytes) throw Failure("too large for settings");
    if (text.Text() != before) WriteWholeOwnFile(native, text.Text());
  }

  Outcome CanKeep(const std::string& application) override {
    return Attempt([&] {
      const std::string native = PathOf(application);
      const FileLock lock = Lock(native);
      ReadSnapshot(native);
      const Replacement tried(native, Replacement::Role::kOwnFile);
    });
  }

 private:
  // Who holds it for longer than any save takes hangs. It is waited for once; after that it is only asked for, and
  // once it has been free no save waits that long again.
  FileLock Lock(const std::string& native) {
    MakeOwnFolder(folder_);
    const auto patience = std::exchange(patience_, kNoPatience);
    FileLock lock(native + ".lock", std::chrono::steady_clock::now() + patience);
    patience_ = patience == kNoPatience ? kLaterPatience : patience;
    return lock;
  }

  std::string PathOf(const std::string& application) const {
    if (folder_.empty()) throw Failure("this user has no home folder");
    return folder_ + '/' + FileNameOf(application);
  }

  const SettingsText& Current(const std::string& application) const {
    const std::string native = PathOf(application);
    Snapshot& snapshot = snapshots_[application];
    struct stat status {};
    const Stamp stamp = stat(native.c_str(), &status) == 0 ? StampOf(status) : Stamp{};
    if (!snapshot.settled || snapshot.stamp != stamp) snapshot = ReadSnapshot(native);
    return snapshot.text;
  }

  std::string folder_;
  std::chrono::milliseconds patience_ = kLockPatience;  // of the next save
  mutable std::map<std::string, Snapshot> snapshots_;
};

}  // namespace

std::unique_ptr<SettingsStore> OpenSettingsStore() {
  const std::string config = ConfigFolder();
  return std::make_unique<FileSettingsStore>(config.empty() ? "" : config + "/velmora");
}

}  // namespace qublet
