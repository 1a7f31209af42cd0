#include "platform/associations.h"

#include <algorithm>

#include "platform/linux/handlers.h"

namespace qublet {
namespace {

bool IsPlayer(const DesktopEntry& entry) {
  return std::ranges::any_of(entry.categories, [](const std::string& category) {
    return category == "Player" || category == "Audio" || category == "AudioVideo";
  });
}

class DesktopAssociations : public Associations {
 public:
  explicit DesktopAssociations(const FileSystem& files) : files_(files) {}

  AssociatedProgram ProgramFor(const std::string& path) const override {
    AssociatedProgram program;
    ResumeNext([&] {
      const std::optional<DesktopEntry> entry = FindHandler(TypesOf(path));
      if (!entry) return;
      program = {"", entry->id, IsPlayer(*entry)};
      program.path = files_.FromNative(FindProgram(entry->command.front()));
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
