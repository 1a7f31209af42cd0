#include "generators/report/report_item.h"

#include <algorithm>
#include <array>

#include "media/file_ends.h"
#include "media/id3/id3v2_tag.h"
#include "media/media_info.h"
#include "media/mpeg_stream.h"
#include "media/vorbis_comments.h"
#include "media/wav_header.h"
#include "platform/drive_form.h"
#include "playlist/paths/formats.h"
#include "playlist/paths/numbers.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

// A file of which start and end are read once: tags and stream facts are in them, but for long tags.
class BothEnds : public InputFile {
 public:
  explicit BothEnds(std::unique_ptr<InputFile> file) : file_(std::move(file)), size_(file_->Size()) {}

  std::int64_t Size() const override { return size_; }
  std::size_t ReadAt(std::int64_t offset, std::span<std::uint8_t> buffer) override {
    const std::int64_t end = offset + static_cast<std::int64_t>(buffer.size());
    if (offset >= 0 && end <= std::min(kHead, size_)) return Copy(head_, 0, offset, buffer);
    const std::int64_t tail = std::max<std::int64_t>(0, size_ - kTail);
    if (offset >= tail && end <= size_) return Copy(tail_, tail, offset, buffer);
    return file_->ReadAt(offset, buffer);
  }

 private:
  static constexpr std::int64_t kHead = 4096;
  static constexpr std::int64_t kTail = 512;

  // A piece of the file, read when it is asked for first.
  template <std::size_t Length>
  struct Piece {
    std::array<std::uint8_t, Length> bytes;
    std::optional<std::size_t> count;  // of bytes that are there
  };

  template <std::size_t Length>
  std::size_t Copy(Piece<Length>& piece, std::int64_t start, std::int64_t offset, std::span<std::uint8_t> buffer) {
    if (!piece.count) piece.count = file_->ReadAt(start, piece.bytes);
    const auto from = std::min(static_cast<std::size_t>(offset - start), *piece.count);
    const std::size_t count = std::min(buffer.size(), *piece.count - from);
    std::copy_n(piece.bytes.begin() + static_cast<std::ptrdiff_t>(from), count, buffer.begin());
    return count;
  }

  const std::unique_ptr<InputFile> file_;
  const std::int64_t size_;
  Piece<kHead> head_;
  Piece<kTail> tail_;
};

std::string Hertz(double rate) {
  return NumberText(rate) + " Hz";
}

void FillStream(const StreamFacts& facts, ReportItem& item) {
  item.facts.shows_time = true;
  ResumeNext([&] {
    item.facts.seconds = IsVbr(facts.StreamBitrate) ? VbrLength(item.facts.size.value(), facts.StreamBitrate)
                                                    : RoundHalfEven(facts.StreamLength);
  });
  item.cells[kIdCell] = facts.StreamVersion;
  item.cells[kLayerCell] = facts.StreamLayer;
  item.cells[kBitrateCell] = facts.StreamBitrate;
  item.cells[kSamplerateCell] = Hertz(facts.StreamSamplerate);
  item.cells[kModeCell] = facts.StreamMode;
  item.cells[kCrcCell] = YesNoText(facts.StreamCrc);
  item.cells[kEmphasisCell] = facts.StreamEmphasis;
  item.cells[kCopyrightedCell] = YesNoText(facts.StreamCopyrighted);
}

void FillV1(const Id3v1Tag& tag, ReportCells& cells) {
  cells[kV1TitleCell] = tag.Title();
  cells[kV1ArtistCell] = tag.Artist();
  cells[kV1AlbumCell] = tag.Album();
  cells[kV1YearCell] = tag.Year();
}

void FillV2(const Id3v2Tag& tag, ReportCells& cells) {
  cells[kV2TitleCell] = tag.Frame("TIT2");
  cells[kV2ArtistCell] = tag.Frame("TPE1");
  cells[kV2AlbumCell] = tag.Frame("TALB");
  cells[kV2YearCell] = tag.Frame("TYER");
}

// A file that can't be read has empty tags and a stream of no length.
void FillFromMp3(InputFile* file, const ReportNeeds& needs, ReportItem& item) {
  StreamFacts facts;
  if (file != nullptr) {
    if (needs.id3v1 || needs.id3v2) {
      ResumeNext([&] {
        const FileEnds ends = FindEnds(*file);
        if (needs.id3v1) FillV1(ReadId3v1(*file, ends).value_or(Id3v1Tag()), item.cells);
        std::optional<RawTag> head = needs.id3v2 ? ReadHead(*file, ends) : std::nullopt;
        if (head) FillV2(Id3v2Tag(std::move(*head)), item.cells);
      });
    }
    if (needs.media) ResumeNext([&] { facts = ReadStreamInfo(*file); });
  }
  FillStream(facts, item);
}

void FillFromOgg(InputFile* file, ReportCells& cells) {
  VorbisComments comments;
  if (file != nullptr) ReadVorbisComments(*file, comments);
  cells[kIdCell] = "OGG Vorbis";
  cells[kV1TitleCell] = comments.Title;
  cells[kV1ArtistCell] = comments.Artist;
  cells[kV1AlbumCell] = comments.Album;
}

void FillFromWav(InputFile* file, ReportItem& item) {
  WavHeader header;
  if (file != nullptr) ReadWavHeader(*file, header);
  std::optional<std::int32_t> bit_rate;
  ResumeNext([&] { bit_rate = WavBitRate(header); });
  if (bit_rate && item.facts.size) ResumeNext([&] { item.facts.seconds = WavLength(*item.facts.size, *bit_rate); });
  item.facts.shows_time = true;
  item.cells[kIdCell] = header.FormatTag == 1 ? "PCM" : "-";
  item.cells[kLayerCell] = std::to_string(header.BitsPerSample) + " bps";
  if (bit_rate) item.cells[kBitrateCell] = WavKilobits(*bit_rate);
  item.cells[kSamplerateCell] = Hertz(header.SampleRate);
  if (header.Channels == 2) item.cells[kModeCell] = "Stereo";
  if (header.Channels == 1) item.cells[kModeCell] = "Mono";
  item.cells[kCrcCell] = item.cells[kCopyrightedCell] = "No";
  item.cells[kEmphasisCell] = "None";
  std::fill(item.cells.begin() + kV1TitleCell, item.cells.end(), "-");
}

// As many pieces from the end of a native path as `relative` has, where that is the end of `path`: a name's own "\"
// is another letter in drive form.
std::string NativeEnd(const std::string& native, const std::string& path, std::string relative) {
  if (!path.ends_with("\\" + relative)) return ReplaceAll(relative, "\\", "/");
  std::size_t start = native.size();
  for (auto pieces = std::ranges::count_if(relative, IsSeparator) + 1; pieces > 0 && start > 0; --pieces)
    start = native.rfind('/', start - 1);
  return native.substr(start + 1);
}

// The file's address, or its place from the base on. Of what addresses must not hold only blanks are escaped.
std::string LinkTo(const FileSystem& files, const std::string& path, const ReportBase& base) {
  std::string native;
  ResumeNext([&] { native = files.ToNative(path); });
  const bool has_native = native.starts_with('/');  // one that isn't in drive form
  std::string link;
  if (base.relative) {
    link = ReplaceAll(path, base.folder + "\\", "");
    if (has_native) link = NativeEnd(native, path, link);
  } else {
    link = has_native ? "file://" + native : "file:///" + path;
  }
  if (!has_native) link = ReplaceAll(link, "\\", "/");
  return ReplaceAll(link, " ", "%20");
}

std::string FolderOf(const std::string& path, const ReportBase& base) {
  std::string folder = GetFolderPath(path);
  if (base.relative && !base.folder.empty()) folder = ReplaceAll(folder, base.folder + "\\", "");
  if (folder.empty()) return ".";
  if (folder.ends_with('\\')) folder.pop_back();
  return folder;
}

bool IsRead(const std::string& extension, const ReportNeeds& needs) {
  if (extension == ".mp3") return needs.media || needs.id3v1 || needs.id3v2;
  return extension == ".wav" || (extension == ".ogg" && needs.id3v1);
}

// One that can't be opened may still have a length.
void FillFromFile(const FileSystem& files, const std::string& path, const std::string& extension,
                  std::unique_ptr<InputFile> file, const ReportNeeds& needs, const std::string& thousands_separator,
                  ReportItem& item) {
  ResumeNext([&] { item.facts.size = ToInteger32(file ? file->Size() : files.FileLength(path)); });
  if (item.facts.size) item.cells[kSizeCell] = FormatSize(*item.facts.size, thousands_separator);
  if (file) file = std::make_unique<BothEnds>(std::move(file));
  if (extension == ".mp3") FillFromMp3(file.get(), needs, item);
  if (extension == ".ogg" && needs.id3v1) FillFromOgg(file.get(), item.cells);
  if (extension == ".wav") FillFromWav(file.get(), item);
}

}  // namespace

ReportItem ReadReportItem(const FileSystem& files, const std::string& path, const ReportNeeds& needs,
                          const ReportBase& base, const std::string& thousands_separator,
                          const ExistingFiles& existing) {
  ReportItem item;
  const std::string dotted = GetExtension(path);
  const std::string extension = LowerCase(dotted);
  item.cells[kNameCell] = ProperCase(ReplaceAll(GetFileName(path), dotted, ""));
  item.cells[kFolderCell] = FolderOf(path, base);
  std::unique_ptr<InputFile> file;
  if (IsRead(extension, needs)) ResumeNext([&] { file = files.OpenForReading(path); });
  item.facts.found = file != nullptr || existing.Has(path);
  if (!item.facts.found) {
    item.cells[kSizeCell] = "Not found!";
    return item;
  }
  if (needs.link) item.link = LinkTo(files, path, base);
  ResumeNext([&] { FillFromFile(files, path, extension, std::move(file), needs, thousands_separator, item); });
  return item;
}

}  // namespace qublet
