#include "playlist/paths/similar_names.h"

#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

bool EndsInNames(std::string_view path, std::string_view names) {
  if (!path.ends_with(names)) return false;
  return path.size() == names.size() || path[path.size() - names.size() - 1] == '\\';
}

}  // namespace

SimilarNames::SimilarNames(const Collection& names) : names_(names), found_(names.size()) {
  for (std::size_t i = 0; i < names.size(); ++i) by_last_name_[SimilarityKey(GetFileName(names[i]))].push_back(i);
}

void SimilarNames::Look(const std::string& folder, const Listing& listing) {
  for (const ListedName& entry : listing) {
    if (entry.is_folder) continue;
    const auto found = by_last_name_.find(Decomposed(entry.folded));
    if (found == by_last_name_.end()) continue;
    for (const std::size_t place : found->second)
      if (found_[place].empty()) Compare(folder + entry.name, place);
  }
}

void SimilarNames::Compare(const std::string& path, std::size_t place) {
  const std::string& wanted = names_[place];
  if (!EndsInNames(path, wanted) && EndsInNames(SimilarityKey(path), SimilarityKey(wanted))) found_[place] = path;
}

}  // namespace qublet
