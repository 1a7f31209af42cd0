#include "platform/associations.h"

#include <windows.h>

#include <shellapi.h>

#include <array>

#include "platform/windows/registry.h"

namespace qublet {
namespace {

// Above this FindExecutable has found one.
constexpr INT_PTR kMostError = 32;

// A program is known by its path alone here.
class ShellAssociations : public Associations {
 public:
  explicit ShellAssociations(const FileSystem& files) : files_(files) {}

  AssociatedProgram ProgramFor(const std::string& path) const override {
    AssociatedProgram program;
    ResumeNext([&] {
      std::array<wchar_t, MAX_PATH + 1> found{};
      const std::wstring native = WideText(files_.ToNative(path));
      const HINSTANCE result = FindExecutableW(native.c_str(), L"", found.data());
      if (reinterpret_cast<INT_PTR>(result) > kMostError) program.path = files_.FromNative(NarrowText(found.data()));
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
