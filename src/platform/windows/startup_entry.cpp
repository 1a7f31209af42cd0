#include "platform/startup_entry.h"

#include "platform/windows/registry.h"

namespace qublet {
namespace {

constexpr const char* kRunKey = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";

// The machine-wide list of what runs at logon: a user without the rights for it is told by a Failure.
class RunKey : public StartupEntries {
 public:
  explicit RunKey(const FileSystem& files) : files_(files) {}

  void Set(const std::string& name, const std::string& path) override {
    RegistryKey::Create(HKEY_LOCAL_MACHINE, kRunKey, KEY_SET_VALUE).SetText(name, files_.ToNative(path));
  }

  void Remove(const std::string& name) override {
    const auto key = RegistryKey::Open(HKEY_LOCAL_MACHINE, kRunKey, KEY_SET_VALUE);
    if (!key) throw Failure("no right to change what runs at logon");
    key->Delete(name);
  }

 private:
  const FileSystem& files_;
};

}  // namespace

std::unique_ptr<StartupEntries> OpenStartupEntries(const FileSystem& files) {
  return std::make_unique<RunKey>(files);
}

}  // namespace qublet
