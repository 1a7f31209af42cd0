#include "tools/rename/apply_rules.h"

#include <algorithm>

#include "media/track_titles.h"
#include "platform/file_name.h"
#include "playlist/paths/numbers.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr std::size_t kExtensionLength = 4;  // characters, whatever they are
constexpr std::size_t kMostOfAName = 32766;  // bytes; rules that feed each other grow a name without bounds

std::string LastCharacters(const std::string& text, std::size_t count) {
  const std::size_t all = CharacterCount(text);
  return all <= count ? text : text.substr(FirstCharacters(text, all - count).size());
}

bool IsDigit(char letter) {
  return letter >= '0' && letter <= '9';
}

TitleReader TitlesOf(const FileSystem& files) {
  return [&files](const std::string& path) { return TagTitle(files, path); };
}

}  // namespace

std::string TagTitle(const FileSystem& files, const std::string& path) {
  const std::string extension = LowerCase(LastCharacters(path, kExtensionLength));
  if (extension == ".mp3") return GetMp3TrackTitle(files, path);
  return extension == ".ogg" ? GetOggTrackTitle(files, path) : "";
}

RenameRules::RenameRules(const RenameConfig& config) : config_(config) {
  for (std::size_t slot = 0; slot < kRuleSlots; ++slot) {
    if (config.RuleActive[slot]) active_.push_back(RuleInSlot(config, slot));
  }
}

std::string RenameRules::NewPath(const std::string& path, std::int16_t Index, std::int16_t Total,
                                 const TitleReader& title) const {
  const std::string file = GetFileName(path);
  std::string extension = LastCharacters(file, kExtensionLength);
  std::string name = ReplaceAll(file, extension, "");
  if (config_.Extension) extension = LowerCase(extension);
  if (config_.RenID3) {
    const std::string found = title(path);
    if (!found.empty()) name = found;
  }
  ApplyTo(name, Index, Total);
  if (name.empty()) return path;
  return GetFolderPath(path) + name + extension;
}

void RenameRules::ApplyTo(std::string& name, std::int16_t index, std::int16_t total) const {
  for (const RenameRule& rule : active_) {
    name = rule.from.empty() ? name + rule.to : ReplaceAll(name, rule.from, rule.to);
    if (name.size() > kMostOfAName) throw Failure("the name is too long");
  }
  if (config_.RemNumbers) std::erase_if(name, IsDigit);
  if (config_.Capitalise) name = ProperCase(name);
  if (config_.LowFilename) name = LowerCase(name);
  if (config_.Increment) {
    const std::string number = PadNumberToWidth(index, total);
    if (name.empty())
      name = number;
    else
      name = config_.IncPos ? number + " - " + name : name + " - " + number;
  }
  if (config_.Truncat) {
    if (config_.Truncval < 0) throw Failure("the limit of its length is below 0");
    name = FirstCharacters(name, static_cast<std::size_t>(config_.Truncval));
  }
  name = Trim(name);
}

RenameResult RenameTo(const FileSystem& files, const std::string& path, const std::string& new_path, PathIs known) {
  if (new_path == path) return {path, {}};
  const Outcome renamed = Attempt([&] {
    const std::string refusal = NameRefusal(GetFileName(new_path));
    if (!refusal.empty()) throw Failure(refusal);
    if (known != PathIs::kFile && files.IdentityOf(path)) throw Failure("it is a folder");
    files.Rename(path, new_path);
  });
  return {renamed ? new_path : path, renamed};
}

RenameResult RenameByRules(const FileSystem& files, const RenameRules& rules, const std::string& path,
                           std::int16_t Index, std::int16_t Total, PathIs known) {
  std::string new_path;
  const Outcome worked_out = Attempt([&] { new_path = rules.NewPath(path, Index, Total, TitlesOf(files)); });
  return worked_out ? RenameTo(files, path, new_path, known) : RenameResult{path, worked_out};
}

std::string ApplyRenameRules(const FileSystem& files, const RenameConfig& config, const std::string& path,
                             std::int16_t Index, std::int16_t Total, bool DoRename) {
  const RenameRules rules(config);
  if (DoRename) return RenameByRules(files, rules, path, Index, Total).path;
  std::string new_path = path;
  ResumeNext([&] { new_path = rules.NewPath(path, Index, Total, TitlesOf(files)); });
  return new_path;
}

}  // namespace qublet
