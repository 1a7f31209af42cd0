#include "media/media_info.h"

#include <memory>

#include "media/mpeg_stream.h"
#include "media/wav_header.h"
#include "playlist/paths/numbers.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

void FillFromMpeg(InputFile* file, MediaInfo& info) {
  if (!file) throw Failure("can't be read");
  const StreamFacts facts = ReadStreamInfo(*file);
  info.Layer = "Layer " + facts.StreamLayer;
  info.ID = "MPEG " + facts.StreamVersion;
  info.Length = RoundHalfEven(facts.StreamLength);
  info.Bitrate = Contains(facts.StreamBitrate, "VBR") ? facts.StreamBitrate : facts.StreamBitrate + " Kbit";
  info.Samplerate = NumberText(facts.StreamSamplerate) + " Hz";
  info.Mode = facts.StreamMode;
}

void FillFromWav(InputFile* file, MediaInfo& info) {
  WavHeader header;
  if (file) ReadWavHeader(*file, header);
  if (header.Channels == 2) info.Mode = "Stereo Interleaved";
  if (header.Channels == 1) info.Mode = "Mono";
  info.ID = header.FormatTag == 1 ? "PCM" : "-";
  info.Samplerate = std::to_string(header.SampleRate) + " Hz";
  const std::int32_t bit_rate = WavBitRate(header);
  info.Bitrate = WavKilobits(bit_rate) + " Kbit";
  info.Length = WavLength(info.Size, bit_rate);
  info.Layer = std::to_string(header.BitsPerSample) + " bits/sample";
}

void FillByExtension(const FileSystem& files, const std::string& path, MediaInfo& info) {
  const std::string extension = LowerCase(GetExtension(info.FileName));
  const bool mpeg = extension == ".mp3";
  const bool wav = extension == ".wav";
  // A file that is read is opened once and asked for its length; one that can't be opened may still have a length.
  std::unique_ptr<InputFile> file;
  if (mpeg || wav) ResumeNext([&] { file = files.OpenForReading(path); });
  const std::int64_t size = file ? file->Size() : files.FileLength(path);
  info.Found = true;
  info.Size = ToInteger32(size);
  if (mpeg) FillFromMpeg(file.get(), info);
  if (extension == ".ogg") info.ID = "OGG Vorbis";
  if (wav) FillFromWav(file.get(), info);
  if (extension == ".vqf") info.ID = "VQF File";
}

}  // namespace

void NameFile(const std::string& path, MediaInfo& info) {
  info.FileName = GetFileName(path);
  info.Path = NormalizedPath(ReplaceAll(path, info.FileName, "")) + "\\";
}

void CompleteFolder(const FileSystem& files, MediaInfo& info) {
  const std::string current = NormalizedPath(files.CurrentFolder());
  info.Path = info.Path == "\\" ? current + "\\" : current + "\\" + info.Path;
}

void GetMediaInfo(const FileSystem& files, const std::string& path, MediaInfo& info) {
  info.Valid = false;
  info.Found = false;
  NameFile(path, info);
  info.Valid = Guarded([&] {
    FillByExtension(files, path, info);
    if (!Contains(path, ":")) CompleteFolder(files, info);
  });
}

bool IsVbr(std::string_view bitrate) {
  return Contains(UpperCase(bitrate), "VBR");
}

std::int32_t VbrLength(std::int32_t size, std::string_view bitrate) {
  const std::int32_t kilobits = TextToInteger32(ReplaceAll(bitrate, " Kbit (VBR)", ""));
  const std::int32_t bits = CheckedMultiply32(size, 8);
  const std::int32_t rate = CheckedMultiply32(kilobits, 1024);
  if (rate == 0) throw Failure("no bit rate");
  return RoundHalfEven(static_cast<double>(bits) / rate);
}

}  // namespace qublet
