#include "fuzz/fuzz_input.h"
#include "journal/run_records.h"
#include "support/memory_file.h"

using namespace qublet;

namespace {

constexpr RunKind kRuns{"a run", "runs"};

RunRecords ReadAgain(Bytes file) {
  return RunRecords(kRuns, std::make_unique<MemoryFile>(std::move(file)));
}

}  // namespace

// Records that were written come back, and of a file that a kill has cut off those that were whole; a byte that
// changes is noticed. The input is what the records hold, and where the file is cut and changed.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Pieces pieces(data, size);
  const std::size_t cut = pieces.UpTo(65535);
  const std::size_t changed = pieces.UpTo(65535);
  const auto change = static_cast<std::uint8_t>(pieces.Byte() | 1);
  const std::string header = RunHeader(kRuns, {"2004-03-09 07:05:01", "somebody"});
  Bytes file = BytesOf(header);
  std::vector<Bytes> contents;
  std::vector<std::size_t> ends;
  while (!pieces.IsEmpty()) {
    contents.push_back(pieces.Bytes(pieces.Byte()));
    Append(file, AsRecord(contents.back()));
    ends.push_back(file.size());
  }

  const std::size_t left = header.size() + cut % (file.size() - header.size() + 1);
  const auto whole = static_cast<std::size_t>(std::ranges::upper_bound(ends, left) - ends.begin());
  const RunRecords records = ReadAgain(Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(left)));
  Require(records.Head().origin == "somebody" && records.Count() == whole);
  for (std::size_t i = 0; i < whole; ++i) Require(records.At(i) == contents[i]);
  Require(records.End() == static_cast<std::int64_t>(whole == 0 ? header.size() : ends[whole - 1]));

  if (contents.empty()) return 0;
  const std::size_t place = header.size() + changed % (file.size() - header.size());
  const auto record = static_cast<std::size_t>(std::ranges::upper_bound(ends, place) - ends.begin());
  file[place] ^= change;
  const RunRecords damaged = ReadAgain(file);
  Require(damaged.Count() >= record);
  for (std::size_t i = 0; i < record; ++i) Require(damaged.At(i) == contents[i]);
  ResumeNext([&] {
    Require(damaged.Count() == record || damaged.At(record) != contents[record]);
    if (damaged.Count() > record) Require(SumOf(damaged.At(record)) != SumOf(contents[record]));
  });
  return 0;
}
