#include "media/editor/run_file.h"

namespace qublet {

Bytes RunRecordBytes(const TagWrite& write) {
  constexpr std::size_t kNumbers = 48;
  Bytes record;
  // A tag can have 256 MiB.
  record.reserve(write.path.size() + write.old_head.size() + write.old_tail.size() + kNumbers + kRoundRecord);
  AppendPiece(record, AsBytes(write.path));
  AppendLong(record, static_cast<std::uint64_t>(write.change.before));
  AppendLong(record, static_cast<std::uint64_t>(write.size));
  AppendPiece(record, write.old_head);
  AppendPiece(record, write.old_tail);
  AppendNumber(record, static_cast<std::uint32_t>(write.change.head.size()), 4);
  AppendNumber(record, static_cast<std::uint32_t>(write.change.tail.size()), 4);
  AppendLong(record, SumOf(write.change.tail, SumOf(write.change.head)));
  return AsRecord(std::move(record));
}

Bytes ClosingRecordBytes(std::size_t changed) {
  Bytes record;
  AppendPiece(record, {});
  AppendLong(record, changed);
  return AsRecord(std::move(record));
}

RunReader::RunReader(std::unique_ptr<InputFile> file)
    : records_(kTagRuns, std::move(file)), count_(records_.Count()), changed_(count_) {
  if (count_ == 0) return;
  // What isn't to be read there is a file's, and told of when it is asked for.
  ResumeNext([&] {
    const Bytes last = records_.At(count_ - 1);
    Taker taker(last);
    if (!taker.Piece().empty()) return;
    changed_ = static_cast<std::size_t>(taker.Long());
    --count_;
  });
}

RunRecord RunReader::At(std::size_t index) const {
  const Bytes content = records_.At(index);
  Taker taker(content);
  RunRecord record;
  record.path = AsText(taker.Piece());
  record.before = static_cast<std::int64_t>(taker.Long());
  record.size = static_cast<std::int64_t>(taker.Long());
  record.old_head = taker.Piece();
  record.old_tail = taker.Piece();
  record.new_head = taker.Number();
  record.new_tail = taker.Number();
  record.new_sum = taker.Long();
  return record;
}

}  // namespace qublet
