#include "platform/startup_entry.h"

#include <unistd.h>

#include "platform/linux/open_files.h"
#include "platform/linux/small_files.h"
#include "platform/linux/user_folders.h"

namespace qublet {
namespace {

constexpr std::string_view kMark = "X-Velmora-Startup=true\n";
constexpr std::int64_t kMostBytes = 64'000;

// Ahead of every character of `special` comes a backslash.
std::string Escaped(std::string_view text, std::string_view special) {
  std::string escaped;
  for (const char c : text) {
    if (special.find(c) != special.npos) escaped += '\\';
    escaped += c;
  }
  return escaped;
}

// One argument of an Exec line: quoted as a shell would want it, "%" doubled, and then escaped once more as every
// value of a desktop entry is.
std::string ExecArgument(std::string_view argument) {
  std::string value;
  for (const char c : Escaped(argument, "\"`$\\")) {
    switch (c) {
      case '%':
        value += "%%";
        break;
      case '\\':
        value += "\\\\";
        break;
      case '\n':
        value += "\\n";
        break;
      case '\r':
        value += "\\r";
        break;
      case '\t':
        value += "\\t";
        break;
      default:
        value += c;
    }
  }
  return '"' + value + '"';
}

std::string EntryThatOpens(const std::string& name, const std::string& native) {
  return "[Desktop Entry]\nType=Application\nName=" + name +
         "\nComment=Opens the last playlist at logon\nExec=xdg-open " + ExecArgument(native) +
         "\nTerminal=false\nNoDisplay=true\n" + std::string(kMark);
}

class AutostartFolder : public StartupEntries {
 public:
  AutostartFolder(const FileSystem& files, const std::string& config)
      : files_(files), folder_(config.empty() ? "" : config + "/autostart") {}

  std::string FileToOpen(const std::string& path) const override {
    return path.ends_with(".m3u") ? path + '8' : path;
  }

  void Set(const std::string& name, const std::string& path) override {
    const std::string native = PathOf(name);
    const std::string present = Present(native);
    const std::string wanted = EntryThatOpens(name, files_.ToNative(FileToOpen(path)));
    if (present == wanted) return;
    if (!present.empty() && !IsOurs(present)) throw Failure("an entry of another program", native);
    MakeFolders(folder_);
    WriteWholeFile(native, wanted);
  }

  void Remove(const std::string& name) override {
    const std::string native = PathOf(name);
    if (IsOurs(Present(native)) && unlink(native.c_str()) != 0) FailWithErrno("remove", native);
  }

 private:
  static bool IsOurs(std::string_view entry) { return entry.find(kMark) != entry.npos; }

  // "" when there is none.
  static std::string Present(const std::string& native) {
    if (access(native.c_str(), F_OK) != 0) return "";
    return ContentOf(*OpenInput(native), kMostBytes);
  }

  std::string PathOf(const std::string& name) const {
    if (folder_.empty()) throw Failure("this user has no home folder");
    if (name.empty() || name.find('/') != name.npos) throw Failure("no name for a startup entry", name);
    return folder_ + '/' + name + ".desktop";
  }

  const FileSystem& files_;
  std::string folder_;
};

}  // namespace

std::unique_ptr<StartupEntries> OpenStartupEntries(const FileSystem& files) {
  return std::make_unique<AutostartFolder>(files, ConfigFolder());
}

}  // namespace qublet
