#include "fuzz/fuzz_input.h"
#include "platform/code_page.h"
#include "platform/forwarding_file_system.h"
#include "playlist/kept_line.h"
#include "playlist/m3u_lines.h"
#include "playlist/paths/text.h"
#include "playlist/paths/text_files.h"
#include "support/memory_file.h"

using namespace qublet;

namespace {

// What is written is kept, under whatever name.
class Written : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;

  std::string Text() const { return {content_.begin(), content_.end()}; }
  std::unique_ptr<FileReplacement> BeginReplacement(const std::string&) const override {
    return std::make_unique<Replacement>(content_);
  }
  std::unique_ptr<InputFile> OpenForReading(const std::string&) const override {
    return std::make_unique<MemoryFile>(content_);
  }

 private:
  class Replacement : public FileReplacement {
   public:
    explicit Replacement(Bytes& content) : content_(content) {}
    void Write(std::span<const std::uint8_t> bytes) override {
      written_.insert(written_.end(), bytes.begin(), bytes.end());
    }
    void CopyFrom(InputFile&, std::int64_t, std::int64_t) override { throw Failure("nothing is there"); }
    std::unique_ptr<InputFile> OpenWritten() override { return std::make_unique<MemoryFile>(written_); }
    void Commit() override { content_ = written_; }

   private:
    Bytes& content_;
    Bytes written_;
  };

  mutable Bytes content_;
};

// The path of a file of this system whose name is text, or an address; "" for one whose line would stand for two
// rows.
std::string PathOf(const FileSystem& system, const std::string& folder, std::string name) {
  std::erase_if(name, [](char c) { return c == '\0' || c == '/'; });
  const std::string lowered = LowerCase(name);
  const bool address = name.starts_with("http:") && !Contains(name, "\\");
  for (const char* other : {".mp3", ".wav", ".wma", ".ogg"}) {
    if (Contains(lowered, other)) return "";
  }
  return address ? "http://host/" + name.substr(5) + ".mp3" : system.FromNative(folder + name + ".mp3");
}

void CheckPlaylist(FileSystem& system, const Collection& paths, const char* name, bool relative) {
  const Written files(system);
  const std::string playlist = std::string("z:\\usr\\") + name;
  Require(bool(WritePlaylistLines(files, playlist, paths, relative)));
  const Collection lines = SplitLines(files.Text());
  Require(lines.size() == paths.size());
  Collection again;
  Require(bool(ReadPlaylistLines(files, playlist, again)) == !paths.empty());
  Require(again.size() == paths.size());
  for (std::size_t i = 0; i < paths.size(); ++i)
    Require(again[i] == paths[i] || (relative && "z:\\usr\\" + again[i] == paths[i]));
}

// As other programs get it: full paths, or addresses where a player would misread them.
void CheckHandOver(FileSystem& system, const Collection& paths) {
  const Written files(system);
  const std::string playlist = "z:\\usr\\tmp.m3u8";
  Require(bool(WriteHandOver(files, playlist, paths)));
  Collection again;
  ReadPlaylistLines(files, playlist, again);
  Require(again == paths && CountOtherLines(files, playlist) == 0);
}

// Lines of missing files come back byte for byte in their own folder and type; elsewhere each still has one line.
void CheckKept(FileSystem& system, const Collection& lines) {
  for (const bool native : {false, true}) {
    const auto source = std::make_shared<KeptLine::Source>(KeptLine::Source{"z:\\usr", native});
    for (const char* playlist : {"z:\\usr\\list.m3u", "z:\\usr\\list.m3u8", "z:\\other\\list.m3u"}) {
      const Written files(system);
      PlaylistText text(files, playlist, false);
      for (const std::string& line : lines) {
        const KeptLine kept{line, source, ""};
        text.Add("z:\\usr\\", "missing.mp3", &kept);
      }
      Require(bool(text.Write()));
      const Collection written = SplitLines(WithoutMark(files.Text()));
      Require(written.size() == lines.size());
      if (native == IsNativePlaylist(playlist) && !Contains(playlist, "other")) Require(written == lines);
    }
  }
}

void CheckLines(FileSystem& system, const Collection& lines) {
  const Written files(system);
  Require(bool(WritePlainLines(files, "z:\\usr\\player.bm", lines)));
  Collection again;
  Require(bool(ReadLinesFromFile(files, again, "z:\\usr\\player.bm")) && again == lines);
}

}  // namespace

// The input is names of files, one a line. Their playlist has a line for each, whatever its type, and is read as the
// same paths; a bookmark file is read as the same lines.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Lines of this system's own form are read against the current folder.
  static const std::unique_ptr<FileSystem> system = [] {
    std::unique_ptr<FileSystem> files = OpenFileSystem();
    files->SetCurrentFolder("z:\\usr");
    return files;
  }();
  Collection paths, kept;
  std::string_view rest = TextOf(data, size);
  while (!rest.empty() && paths.size() < 50) {
    const std::string_view line = TakeLine(rest);
    if (!line.empty() && WithoutMark(line) == line && !Contains(line, std::string_view("\0", 1)))
      kept.emplace_back(line);
    const std::string name = DecodeText(line);
    const std::string path = PathOf(*system, paths.size() % 3 == 2 ? "/usr/sub/" : "/usr/", name);
    if (!path.empty()) paths.push_back(path);
  }
  for (const char* name : {"list.m3u", "list.m3u8"}) {
    for (const bool relative : {false, true}) CheckPlaylist(*system, paths, name, relative);
  }
  CheckHandOver(*system, paths);
  CheckLines(*system, paths);
  CheckKept(*system, kept);
  return 0;
}
