#include "platform/linux/links.h"

#include <fcntl.h>
#include <unistd.h>

#include <optional>

namespace qublet {
namespace {

constexpr int kMostLinks = 40;

// `native` is relative to the folder `from`.
HeldPlace Enter(int from, const std::string& native) {
  const std::size_t cut = native.rfind('/') + 1;
  return {OpenAt(from, cut == 0 ? "." : native.substr(0, cut), O_PATH | O_DIRECTORY), native.substr(cut)};
}

bool Counts(const struct stat& link, const struct stat& folder, Whose whose) {
  if (whose == Whose::kOwn) return IsThisUsers(link) && !OthersMayWrite(folder);
  const bool sticky_for_all = (folder.st_mode & S_ISVTX) != 0 && (folder.st_mode & S_IWOTH) != 0;
  return !sticky_for_all || IsThisUsers(link) || link.st_uid == folder.st_uid;
}

// Where others can put what they like, or the folder is theirs, there is nothing of our own.
void RefuseFolderOfOthers(const struct stat& folder, const std::string& native) {
  const bool theirs = !IsThisUsers(folder) && folder.st_uid != 0;
  if (theirs || (folder.st_mode & S_IWOTH) != 0) throw Failure("the folder belongs to others too", native);
}

// What a link says; nothing for another kind of file and for none. The link is read that was looked at, whatever
// stands at its name meanwhile.
std::optional<std::string> LinkAt(const HeldPlace& place, Whose whose) {
  const Descriptor link(openat(place.folder.Get(), place.name.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
  if (!link.IsOpen()) return std::nullopt;
  const struct stat status = StatusOf(link);
  if (!S_ISLNK(status.st_mode)) return std::nullopt;
  if (!Counts(status, StatusOf(place.folder), whose)) throw Failure("a link that others may have made", place.name);
  char target[4096];
  const ssize_t length = readlinkat(link.Get(), "", target, sizeof target);
  if (length < 0) FailWithErrno("read link", place.name);
  return std::string(target, static_cast<std::size_t>(length));
}

}  // namespace

HeldPlace PlaceAsNamed(const std::string& native) {
  return Enter(AT_FDCWD, native);
}

HeldPlace PlaceOf(const std::string& native, Whose whose) {
  HeldPlace place = PlaceAsNamed(native);
  for (int i = 0; i < kMostLinks; ++i) {
    const std::optional<std::string> target = LinkAt(place, whose);
    if (!target && whose == Whose::kOwn) RefuseFolderOfOthers(StatusOf(place.folder), native);
    if (!target) return place;
    place = Enter(place.folder.Get(), *target);
  }
  throw Failure("too many links", native);
}

bool IsThisUsers(const struct stat& status) {
  return status.st_uid == geteuid();
}

bool OthersMayWrite(const struct stat& folder) {
  return (!IsThisUsers(folder) && folder.st_uid != 0) || (folder.st_mode & (S_IWGRP | S_IWOTH)) != 0;
}

}  // namespace qublet
