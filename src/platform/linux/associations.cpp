#include "platform/associations.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/linux/handlers.h"

namespace qublet {
namespace {

bool IsPlayer(const DesktopEntry& entry) {
  return std::ranges::any_of(entry.categories, [](const std::string& category) {
    return category == "Player" || category == "Audio" || category == "AudioVideo";
  });
}

std::string ExecutableOf(const DesktopEntry& entry) {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(entry.program, error);
  return error || !entry.RunsByItself() ? "" : real.string();
}

class DesktopAssociations : public Associations {
 public:
  explicit DesktopAssociations(const FileSystem& files) : files_(files) {}

  AssociatedProgram ProgramFor(const std::string& path) const override {
    AssociatedProgram program;
    ResumeNext([&] {
      const std::optional<DesktopEntry> entry = FindHandler(TypesOf(path));
      if (!entry) return;
      program = {"", entry->id, IsPlayer(*entry), ExecutableOf(*entry)};
      program.path = files_.FromNative(entry->program);
    });
    return program;
  }

 private:
  const FileSystem& files_;
};

}  // namespace

std::unique_ptr<Associations> OpenAssociations(const FileSystem& files) {
  return std::make_unique<DesktopAssociations>(files);
}

}  // namespace qublet
