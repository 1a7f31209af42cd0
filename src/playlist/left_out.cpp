#include "playlist/left_out.h"

namespace qublet {
namespace {

std::string Counted(std::size_t count, const std::string& one, const std::string& many) {
  return count == 0 ? "" : count == 1 ? "1 " + one : std::to_string(count) + " " + many;
}

}  // namespace

std::string JoinedRemarks(const std::string& first, const std::string& second) {
  return first + (first.empty() || second.empty() ? "" : "; ") + second;
}

std::string GapsText(const WalkGaps& gaps) {
  const std::string folders = Counted(gaps.unlisted, "folder can't be listed", "folders can't be listed");
  const std::string paths = Counted(gaps.too_far, "path is too long", "paths are too long");
  return JoinedRemarks(folders, paths);
}

std::string LongLinesText(std::size_t lines) {
  return Counted(lines, "line is longer than 32 KiB and left out", "lines are longer than 32 KiB and left out");
}

}  // namespace qublet
