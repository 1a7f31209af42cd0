// stream_facts FILE...: what we read of each file, a line of tab-separated name=value pairs a file.

#include <iostream>

#include "media/media_info.h"
#include "media/mpeg_stream.h"

namespace qublet {
namespace {

void PrintInfo(const MediaInfo& info) {
  std::cout << "Valid=" << info.Valid << "\tFileName=" << info.FileName << "\tLength=" << info.Length
            << "\tSize=" << info.Size << "\tID=" << info.ID << "\tLayer=" << info.Layer
            << "\tBitrate=" << info.Bitrate << "\tSamplerate=" << info.Samplerate << "\tMode=" << info.Mode;
  if (IsVbr(info.Bitrate)) std::cout << "\tVbrLength=" << VbrLength(info.Size, info.Bitrate);
}

void PrintFacts(const StreamFacts& facts) {
  std::cout << "\tStreamLength=" << facts.StreamLength << "\tStreamCrc=" << facts.StreamCrc
            << "\tStreamCopyrighted=" << facts.StreamCopyrighted << "\tStreamOriginal=" << facts.StreamOriginal
            << "\tStreamEmphasis=" << facts.StreamEmphasis;
}

}  // namespace
}  // namespace qublet

int main(int count, char** arguments) {
  using namespace qublet;
  const auto files = OpenFileSystem();
  for (int i = 1; i < count; ++i) {
    const std::string path = files->FromNative(arguments[i]);
    MediaInfo info;
    GetMediaInfo(*files, path, info);
    PrintInfo(info);
    ResumeNext([&] { PrintFacts(ReadStreamInfo(*files->OpenForReading(path))); });
    std::cout << "\n";
  }
}
