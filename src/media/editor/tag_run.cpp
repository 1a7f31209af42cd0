#include "media/editor/tag_run.h"

#include <algorithm>
#include <utility>

namespace qublet {
namespace {

constexpr std::size_t kMostTogether = 16;
constexpr std::size_t kMostBytesTogether = std::size_t{4} << 20;

std::size_t BytesOf(const TagWrite& write) {
  return write.old_head.size() + write.change.head.size();
}

}  // namespace

TagRun::Planned TagRun::PlanOne(const std::string& path) const {
  Planned planned{path, {}, {}};
  planned.outcome = Attempt([&] { planned.write = plan_(path); });
  return planned;
}

// A file that stands there twice is looked at again when its first change is done.
bool TagRun::MustFinishBefore(const Planned& next) const {
  std::size_t bytes = BytesOf(next.write);
  for (const Planned& planned : group_) bytes += BytesOf(planned.write);
  return group_.size() == kMostTogether || bytes > kMostBytesTogether;
}

void TagRun::Over(const Collection& paths) {
  const auto batch = files_.BeginBatch();
  for (const std::string& path : paths) {
    if (watch_.stopped()) break;
    if (std::ranges::find(group_, path, &Planned::path) != group_.end()) Finish();
    Planned planned = PlanOne(path);
    watch_.step();
    if (MustFinishBefore(planned)) Finish();
    group_.push_back(std::move(planned));
  }
  Finish();
  record_.End();
}

void TagRun::Finish() {
  for (const Planned& planned : group_) {
    if (planned.outcome) record_.Note(planned.write);
  }
  record_.Flush();
  for (Planned& planned : group_) {
    if (watch_.stopped()) break;
    Commit(planned);
    watch_.done(planned.path, planned.outcome);
    watch_.step();
  }
  group_.clear();
}

void TagRun::Commit(Planned& planned) {
  if (!planned.outcome) return;
  planned.outcome = Attempt([&] {
    try {
      CommitTags(files_, planned.write);
    } catch (const ChangedMeanwhile&) {
      // The same file under another name, or another program.
      planned.write = plan_(planned.path);
      record_.Note(planned.write);
      record_.Flush();
      CommitTags(files_, planned.write);
    }
    if (!planned.write.ChangesNothing()) record_.Changed();
    planned.write.id3v2.OrThrow();
  });
}

}  // namespace qublet
