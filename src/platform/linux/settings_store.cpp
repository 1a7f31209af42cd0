#include "platform/settings_store.h"

#include <fcntl.h>
#include <sys/file.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <thread>
#include <utility>

#include "platform/failure.h"
#include "platform/linux/open_files.h"
#include "platform/linux/settings_text.h"
#include "platform/linux/small_files.h"
#include "platform/linux/user_folders.h"

namespace qublet {
namespace {

constexpr std::int64_t kMostBytes = 4'000'000;
constexpr auto kLockPatience = std::chrono::seconds(3);

// Held while one process reads, changes and replaces a file. It ends with the process, however that ends.
class FileLock {
 public:
  // Throws Failure when another process keeps the lock for longer than `patience`.
  FileLock(const std::string& native, std::chrono::seconds patience)
      : file_(OpenAt(AT_FDCWD, native, O_RDWR | O_CREAT, 0666)) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (flock(file_.Get(), LOCK_EX | LOCK_NB) != 0) {
      if (errno == ENOLCK || errno == EOPNOTSUPP) return;  // a file system without locks: better than no settings
      if (errno != EWOULDBLOCK && errno != EINTR) FailWithErrno("lock", native);
      if (std::chrono::steady_clock::now() > end) throw Failure("locked by another process", native);
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }

 private:
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

  const std::unique_ptr<DescriptorInput> input = OpenInput(native);
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
    MakeFolders(folder_);
    // Who holds it for longer than any save takes hangs: it is waited for once, and then asked for only.
    const auto patience = std::exchange(lock_patience_, std::chrono::seconds(0));
    const FileLock lock(native + ".lock", patience);
    lock_patience_ = kLockPatience;
    SettingsText text = ReadSnapshot(native).text;
    const std::string before = text.Text();
    for (const Setting& setting : settings) text.Set(setting);
    if (static_cast<std::int64_t>(text.Text().size()) > kMostBytes) throw Failure("too large for settings");
    if (text.Text() != before) WriteWholeFile(native, text.Text());
  }

 private:
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
  std::chrono::seconds lock_patience_ = kLockPatience;  // of the next save
  mutable std::map<std::string, Snapshot> snapshots_;
};

}  // namespace

std::unique_ptr<SettingsStore> OpenSettingsStore() {
  const std::string config = ConfigFolder();
  return std::make_unique<FileSettingsStore>(config.empty() ? "" : config + "/velmora");
}

}  // namespace qublet
