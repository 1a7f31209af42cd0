#include "settings/startup.h"

#include <algorithm>

#include "platform/failure.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

std::string EntryName(const std::string& path) {
  const std::string name = GetFileName(path);
  const std::size_t length = CharacterCount(name);
  return FirstCharacters(name, length - std::min<std::size_t>(length, 4));
}

}  // namespace

void AddToStartup(StartupEntries& entries, const std::string& path) {
  ResumeNext([&] { entries.Set(EntryName(path), path); });
}

void RemoveFromStartup(StartupEntries& entries, const std::string& path) {
  ResumeNext([&] { entries.Remove(EntryName(path)); });
}

}  // namespace qublet
