#include "platform/associations.h"

#include "platform/windows/windows_api.h"

#include <shlwapi.h>

#include "platform/windows/wide_text.h"

namespace qublet {
namespace {

constexpr DWORD kMostPathUnits = 32768;

// A program is known by its path alone here.
class ShellAssociations : public Associations {
 public:
  explicit ShellAssociations(const FileSystem& files) : files_(files) {}

  AssociatedProgram ProgramFor(const std::string& path) const override {
    AssociatedProgram program;
    ResumeNext([&] {
      const std::size_t dot = path.find_last_of(".\\");
      if (dot == path.npos || path[dot] != '.') return;
      std::wstring found(kMostPathUnits, L'\0');
      DWORD length = kMostPathUnits;
      // The program that only asks the user which one to take is none.
      const HRESULT result = AssocQueryStringW(ASSOCF_NOTRUNCATE | ASSOCF_INIT_IGNOREUNKNOWN, ASSOCSTR_EXECUTABLE,
                                               WideText(path.substr(dot)).c_str(), L"open", found.data(), &length);
      // A bare name would be looked for in the current folder.
      if (result == S_OK && !PathIsRelativeW(found.c_str()))
        program.path = files_.FromNative(NarrowText(found.c_str()));
    });
    return program;
  }

 private:
  const FileSystem& files_;
};

}  // namespace

std::unique_ptr<Associations> OpenAssociations(const FileSystem& files) {
  return std::make_unique<ShellAssociations>(files);
}

}  // namespace qublet
