#include "platform/linux/handlers.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <sstream>
#include <system_error>

#include "platform/linux/user_folders.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSuffix = ".desktop";
// A list of one desktop's own has its name in front, and can only choose, not add or remove.
constexpr const char* kList = "mimeapps.list";

// This program opens playlists too, but it plays nothing.
constexpr std::string_view kOwnEntry = "QUBLET20.desktop";

struct Kind {
  std::string_view extension;
  std::array<std::string_view, 3> types;
};

constexpr std::array<std::string_view, 3> kPlaylistTypes{"audio/x-mpegurl", "application/vnd.apple.mpegurl",
                                                         "audio/mpegurl"};
constexpr std::array kKinds{
    Kind{".m3u", kPlaylistTypes},
    Kind{".m3u8", kPlaylistTypes},
    Kind{".mp3", {"audio/mpeg", "audio/mp3", "audio/x-mp3"}},
    Kind{".ogg", {"audio/x-vorbis+ogg", "audio/ogg", "audio/vorbis"}},
    Kind{".wav", {"audio/x-wav", "audio/vnd.wave", "audio/wav"}},
    Kind{".wma", {"audio/x-ms-wma", "", ""}},
};

std::string LowerAscii(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

// "GNOME:Old" names the desktops that this session is, the nearest first.
std::vector<std::string> ListNames() {
  std::vector<std::string> names;
  const char* desktops = std::getenv("XDG_CURRENT_DESKTOP");
  std::istringstream pieces(desktops != nullptr ? desktops : "");
  for (std::string desktop; std::getline(pieces, desktop, ':');) {
    if (!desktop.empty() && desktop.find('/') == desktop.npos) names.push_back(LowerAscii(desktop) + '-' + kList);
  }
  names.emplace_back(kList);
  return names;
}

class Search {
 public:
  explicit Search(const std::vector<std::string>& types) : types_(types) {
    for (const std::string& folder : DataFolders()) applications_.push_back(folder + "/applications");
    lists_ = ConfigFolders();
    lists_.insert(lists_.end(), applications_.begin(), applications_.end());
  }

  std::optional<DesktopEntry> Run() {
    if (auto chosen = Chosen()) return chosen;
    if (auto associated = Associated()) return associated;
    return Installed();
  }

 private:
  std::optional<DesktopEntry> Chosen() {
    removed_.clear();
    for (const std::string& folder : lists_) {
      for (const std::string& name : ListNames()) {
        const std::string text = ReadGroups(folder + '/' + name);
        if (auto entry = FirstUsable(text, "Default Applications")) return entry;
        if (name == kList) Remove(text);
      }
    }
    return std::nullopt;
  }

  std::optional<DesktopEntry> Associated() {
    removed_.clear();
    for (const std::string& folder : lists_) {
      const std::string text = ReadGroups(folder + '/' + kList);
      if (auto entry = FirstUsable(text, "Added Associations")) return entry;
      Remove(text);
      if (auto entry = FirstUsable(ReadGroups(folder + "/mimeinfo.cache"), "MIME Cache")) return entry;
    }
    return std::nullopt;
  }

  // What was put there without a word to the cache.
  std::optional<DesktopEntry> Installed() const {
    std::set<std::string> ids;
    for (const std::string& folder : applications_) AddIds(folder, ids);
    std::vector<DesktopEntry> entries;
    for (const std::string& id : ids) {
      if (auto entry = Usable(id)) entries.push_back(std::move(*entry));
    }
    for (const std::string& type : types_) {
      for (const DesktopEntry& entry : entries) {
        if (std::ranges::find(entry.types, type) != entry.types.end()) return entry;
      }
    }
    return std::nullopt;
  }

  static void AddIds(const std::string& folder, std::set<std::string>& ids) {
    std::error_code error;
    fs::recursive_directory_iterator place(folder, fs::directory_options::skip_permission_denied, error);
    for (const fs::recursive_directory_iterator end; !error && place != end; place.increment(error)) {
      std::string id = place->path().lexically_relative(folder).string();
      if (!id.ends_with(kSuffix)) continue;
      std::ranges::replace(id, '/', '-');
      ids.insert(id);
    }
  }

  void Remove(const std::string& text) {
    for (const std::string& type : types_) {
      for (const std::string& id : ListOf(text, "Removed Associations", type)) removed_.insert(id);
    }
  }

  std::optional<DesktopEntry> FirstUsable(const std::string& text, std::string_view group) const {
    for (const std::string& type : types_) {
      for (const std::string& id : ListOf(text, group, type)) {
        if (auto entry = Usable(id)) return entry;
      }
    }
    return std::nullopt;
  }

  // The first folder that has an entry of this id hides all others of the name.
  std::optional<DesktopEntry> Usable(const std::string& id) const {
    if (!id.ends_with(kSuffix) || id.find('/') != id.npos || id == kOwnEntry) return std::nullopt;
    if (removed_.contains(id)) return std::nullopt;
    for (const std::string& folder : applications_) {
      const std::string native = PlaceOf(folder, id);
      if (!native.empty()) return ReadDesktopEntry(id.substr(0, id.size() - kSuffix.size()), native);
    }
    return std::nullopt;
  }

  // "kde-player.desktop" is also "kde/player.desktop".
  static std::string PlaceOf(const std::string& folder, std::string id) {
    std::error_code error;
    std::size_t from = 0;
    while (true) {
      if (fs::exists(folder + '/' + id, error)) return folder + '/' + id;
      const std::size_t dash = id.find('-', from);
      if (dash == id.npos) return "";
      id[dash] = '/';
      from = dash + 1;
    }
  }

  const std::vector<std::string>& types_;
  std::vector<std::string> applications_;
  std::vector<std::string> lists_;
  std::set<std::string> removed_;
};

}  // namespace

std::vector<std::string> TypesOf(const std::string& file_name) {
  const std::size_t dot = file_name.find_last_of("./\\");
  const std::string extension = dot == file_name.npos ? "" : LowerAscii(file_name.substr(dot));
  std::vector<std::string> types;
  for (const Kind& kind : kKinds) {
    if (kind.extension != extension) continue;
    for (const std::string_view type : kind.types) {
      if (!type.empty()) types.emplace_back(type);
    }
  }
  return types;
}

bool IsAudio(const std::string& file_name) {
  const std::vector<std::string> types = TypesOf(file_name);
  return !types.empty() && types.front() != kPlaylistTypes.front();
}

std::optional<DesktopEntry> FindHandler(const std::vector<std::string>& types) {
  return Search(types).Run();
}

}  // namespace qublet
