#include "platform/windows/move.h"

#include "platform/file_content.h"
#include "platform/windows/replacement.h"
#include "platform/windows/wide_text.h"

namespace qublet {
namespace {

void MoveAcross(const std::wstring& from, const std::wstring& to) {
  {
    const auto source = OpenInput(from);
    Replacement copy(to, Replacement::Role::kMoved, source.get());
    copy.CopyFrom(*source, 0, source->Size());
    if (!SameContent(*source, *copy.OpenWritten())) throw Failure("the copy differs", NarrowText(to));
    copy.Commit();
  }
  if (DeleteFileW(from.c_str())) return;
  const DWORD error = GetLastError();
  DeleteFileW(to.c_str());
  SetLastError(error);
  FailWithLastError("delete", NarrowText(from));
}

bool DifferInCaseOnly(const std::wstring& one, const std::wstring& other) {
  return CompareStringOrdinal(one.c_str(), -1, other.c_str(), -1, TRUE) == CSTR_EQUAL;
}

// Whether the folder holds the name letter for letter.
bool StandsAsWritten(const std::wstring& place) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(place.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return place.substr(place.rfind(L'\\') + 1) == found.cFileName;
}

// Some file systems take both names for the same and do nothing; a name between helps.
void ChangeCase(const std::wstring& from, const std::wstring& to) {
  const std::wstring between = to.substr(0, to.rfind(L'\\') + 1) + RandomName();
  if (!MoveFileExW(from.c_str(), between.c_str(), 0)) FailWithLastError("rename", NarrowText(from));
  if (MoveFileExW(between.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH)) return;
  const DWORD error = GetLastError();
  MoveFileExW(between.c_str(), from.c_str(), MOVEFILE_WRITE_THROUGH);
  SetLastError(error);
  FailWithLastError("rename", NarrowText(from));
}

}  // namespace

void Move(const std::wstring& from, const std::wstring& to) {
  RefuseDeviceName(to);
  // The system would take this for done.
  if (from == to) throw Failure("there is a file of this name already", NarrowText(to));
  if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH)) {
    if (DifferInCaseOnly(from, to) && !StandsAsWritten(to)) ChangeCase(from, to);
    return;
  }
  if (GetLastError() != ERROR_NOT_SAME_DEVICE) FailWithLastError("rename", NarrowText(from));
  MoveAcross(from, to);
}

}  // namespace qublet
