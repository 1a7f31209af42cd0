// stream_facts FILE...: the stream facts of each MPEG file that the list doesn't show, a line of tab-separated
// name=value pairs a file; an empty line where there is no stream.

#include <iostream>

#include "media/mpeg_stream.h"

namespace qublet {
namespace {

void PrintFacts(const StreamFacts& facts) {
  std::cout << "StreamLength=" << facts.StreamLength << "\tStreamCrc=" << facts.StreamCrc
            << "\tStreamCopyrighted=" << facts.StreamCopyrighted << "\tStreamOriginal=" << facts.StreamOriginal
            << "\tStreamEmphasis=" << facts.StreamEmphasis;
}

}  // namespace
}  // namespace qublet

int main(int count, char** arguments) {
  using namespace qublet;
  const auto files = OpenFileSystem();
  for (int i = 1; i < count; ++i) {
    ResumeNext([&] { PrintFacts(ReadStreamInfo(*files->OpenForReading(files->FromNative(arguments[i])))); });
    std::cout << "\n";
  }
}
