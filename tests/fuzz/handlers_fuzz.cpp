#include "platform/linux/handlers.h"

#include "fuzz/fuzz_input.h"
#include "support/temporary_desktop.h"

using namespace qublet;

namespace {

const std::string kType = "audio/mpeg";

// Three programs, the last of which says that it opens the type.
class Desktop {
 public:
  Desktop() {
    desktop_.Install("one");
    desktop_.Install("two");
    desktop_.Install("kde-three", "MimeType=audio/mpeg;\n");
  }

  std::optional<DesktopEntry> HandlerBy(std::string_view own, std::string_view shared, std::string_view cache) const {
    TemporaryDrives::WriteAt(desktop_.Config() / "mimeapps.list", std::string(own));
    TemporaryDrives::WriteAt(desktop_.SystemConfig() / "mimeapps.list", std::string(shared));
    TemporaryDrives::WriteAt(desktop_.SystemData() / "applications" / "mimeinfo.cache", std::string(cache));
    return FindHandler({kType});
  }

 private:
  TemporaryDesktop desktop_;
  Variable home_{"XDG_CONFIG_HOME", desktop_.Config().string()};
  Variable data_home_{"XDG_DATA_HOME", desktop_.Data().string()};
};

bool Lists(std::string_view text, std::string_view group, const std::string& id) {
  const std::vector<std::string> ids = ListOf(text, group, kType);
  return std::ranges::find(ids, id + ".desktop") != ids.end();
}

}  // namespace

// The lists of this user, of the system and of what is installed, parted by zeros: whatever they say, it is one of
// the programs that are there or none, the first that this user chose comes before all others, and one that this user
// removed comes only by choice.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Desktop desktop;
  const std::string_view text = TextOf(data, size);
  const std::string_view own = text.substr(0, text.find('\0'));
  const std::string_view others = text.substr(std::min(own.size() + 1, size));
  const std::string_view shared = others.substr(0, others.find('\0'));
  const std::string_view cache = others.substr(std::min(shared.size() + 1, others.size()));
  const auto handler = desktop.HandlerBy(own, shared, cache);
  const std::vector<std::string> known = {"one", "two", "kde-three"};
  Require(!handler || std::ranges::find(known, handler->id) != known.end());
  for (const std::string& chosen : ListOf(own, "Default Applications", kType)) {
    const auto first = std::ranges::find_if(known, [&](const std::string& id) { return chosen == id + ".desktop"; });
    if (first == known.end()) continue;
    Require(handler && handler->id == *first);
    return 0;
  }
  if (!handler) return 0;
  Require(!Lists(own, "Removed Associations", handler->id) || Lists(own, "Added Associations", handler->id));
  return 0;
}
