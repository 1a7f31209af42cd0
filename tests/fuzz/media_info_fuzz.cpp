#include "media/media_info.h"

#include "fuzz/fuzz_input.h"
#include "fuzz/one_file.h"
#include "media/tag_bounds.h"
#include "media/track_titles.h"
#include "platform/code_page.h"

using namespace qublet;

namespace {

bool IsPlain(const std::string& text) {
  return std::ranges::all_of(text, [](char c) {
    return c == ' ' || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-';
  });
}

}  // namespace

// What the list shows of a file, by each of its kinds, whatever it holds: texts, and lengths that are none
// below 0 but for what a WAV head says of itself.
// The title that a bookmark is given is one line.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::unique_ptr<FileSystem> system = OpenFileSystem();
  const OneFile files(*system, Bytes(data, data + size));
  for (const char* path : {"z:\\m\\a.mp3", "z:\\m\\a.wav", "z:\\m\\a.ogg", "z:\\m\\a.wma", "a.mp3"}) {
    MediaInfo info;
    GetMediaInfo(files, path, info);
    Require(info.Found && info.Size == static_cast<std::int32_t>(size) && info.Path.ends_with('\\'));
    Require(info.Length >= 0 || info.FileName.ends_with(".wav"));
    if (IsVbr(info.Bitrate)) ResumeNext([&] { Require(VbrLength(info.Size, info.Bitrate) >= 0); });
    for (const std::string& text : {info.ID, info.Layer, info.Bitrate, info.Samplerate, info.Mode})
      Require(IsAscii(text));
    Require(IsPlain(GetMp3TrackTitle(files, path)) && IsPlain(GetOggTrackTitle(files, path)));
  }
  MemoryFile file(Bytes(data, data + size));
  const std::int64_t end = AudioEnd(file, 0);
  Require(end >= 0 && end <= static_cast<std::int64_t>(size));
  return 0;
}
