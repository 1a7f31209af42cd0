#include "media/tpsi.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "playlist/paths/formats.h"
#include "playlist/paths/numbers.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

bool IsReserved(const TagComment& comment) {
  return comment.description == kTpsiDescription;
}

}  // namespace

bool EncodeTpsi(const Collection& records, std::string& text) {
  text.clear();
  for (const std::string& record : records) text += record;
  return true;
}

bool DecodeTpsi(Collection& records, std::string_view text) {
  if (CharacterCount(text) % kTpsiRecordLength != 0) return false;
  records.clear();
  while (!text.empty()) {
    records.push_back(FirstCharacters(text, kTpsiRecordLength));
    text.remove_prefix(records.back().size());
  }
  return true;
}

Collection TpsiRecords(const std::vector<TagComment>& comments) {
  Collection all;
  for (const TagComment& comment : comments) {
    Collection records;
    if (IsReserved(comment) && DecodeTpsi(records, comment.text))
      all.insert(all.end(), records.begin(), records.end());
  }
  return all;
}

void StoreTpsi(const Collection& records, std::vector<TagComment>& comments) {
  std::erase_if(comments, IsReserved);
  std::string text;
  EncodeTpsi(records, text);
  if (!text.empty()) comments.push_back({std::string(kTpsiDescription), text});
}

std::string TpsiRecord(int hours, int minutes, int seconds) {
  const std::string digits = std::to_string(hours * 3600000 + minutes * 60000 + seconds * 1000);
  return std::string(kTpsiRecordLength - std::min(kTpsiRecordLength, digits.size()), '0') + digits;
}

void AddTpsi(const std::string& record, Collection& records) {
  const bool known = std::ranges::find(records, record) != records.end();
  if (!known && record != TpsiRecord(0, 0, 0)) records.push_back(record);
}

std::int32_t TpsiMilliseconds(const std::string& record) {
  constexpr double kLongest = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(std::trunc(LeadingNumber(record)), 0.0, kLongest));
}

std::string TpsiTimeText(const std::string& record) {
  return FormatTime(TpsiMilliseconds(record) / 1000);
}

}  // namespace qublet
