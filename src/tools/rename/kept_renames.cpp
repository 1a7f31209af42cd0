#include "tools/rename/kept_renames.h"

#include <utility>

namespace qublet {
namespace {

void ReadPlan(const Bytes& content, std::vector<KeptRename>& renames) {
  Taker taker(content);
  while (!taker.IsEmpty()) {
    KeptRename rename;
    rename.old_path = AsText(taker.Piece());
    rename.new_path = AsText(taker.Piece());
    rename.identity.number = taker.Long();
    rename.identity.made = static_cast<std::int64_t>(taker.Long());
    renames.push_back(std::move(rename));
  }
}

// One that is damaged tells nothing.
void ReadState(const Bytes& content, std::vector<KeptRename>& renames) {
  Taker taker(content);
  const std::uint32_t index = taker.Number();
  const std::uint32_t state = taker.Number();
  if (index < renames.size() && state <= static_cast<std::uint32_t>(KeptState::kRestored))
    renames[index].state = static_cast<KeptState>(state);
}

}  // namespace

Bytes PlanRecord(const FileSystem& files, const std::vector<PlannedRename>& plan) {
  Bytes content;
  for (const PlannedRename& rename : plan) {
    const FileIdentity identity = files.IdentityOfFile(rename.old_path).value_or(FileIdentity{});
    AppendPiece(content, AsBytes(rename.old_path));
    AppendPiece(content, AsBytes(rename.new_path));
    AppendLong(content, identity.number);
    AppendLong(content, static_cast<std::uint64_t>(identity.made));
  }
  return AsRecord(std::move(content));
}

void AppendState(InPlaceFile& file, std::int64_t& end, std::size_t index, KeptState state) {
  Bytes content;
  AppendNumber(content, static_cast<std::uint32_t>(index), 4);
  AppendNumber(content, static_cast<std::uint32_t>(state), 4);
  const Bytes record = AsRecord(std::move(content));
  file.WriteAt(end, record);
  end += static_cast<std::int64_t>(record.size());
}

KeptRun ReadKeptRun(std::unique_ptr<InputFile> file) {
  const RunRecords records(kRenameRuns, std::move(file));
  KeptRun run{records.Head(), {}, records.End()};
  if (records.Count() > 0) ReadPlan(records.At(0), run.renames);
  for (std::size_t i = 1; i < records.Count(); ++i) ResumeNext([&] { ReadState(records.At(i), run.renames); });
  return run;
}

bool IsAt(const FileSystem& files, const std::string& path, const FileIdentity& identity) {
  return identity.number != 0 && files.IdentityOfFile(path) == identity;
}

}  // namespace qublet
