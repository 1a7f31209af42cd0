#include "platform/windows/registry.h"

#include <algorithm>
#include <utility>

#include "platform/failure.h"
#include "platform/windows/wide_text.h"

namespace qublet {
namespace {

// The longest name that the registry keeps is 16,383 characters.
constexpr DWORD kMostNameCharacters = 16384;

}  // namespace

RegistryKey RegistryKey::Create(HKEY root, const std::string& path, REGSAM rights) {
  HKEY key = nullptr;
  if (RegCreateKeyExW(root, WideText(path).c_str(), 0, nullptr, 0, rights, nullptr, &key, nullptr) != ERROR_SUCCESS)
    throw Failure("registry key can't be made", path);
  return RegistryKey(key);
}

std::optional<RegistryKey> RegistryKey::Open(HKEY root, const std::string& path, REGSAM rights) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, WideText(path).c_str(), 0, rights, &key) != ERROR_SUCCESS) return std::nullopt;
  return RegistryKey(key);
}

RegistryKey::RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}

RegistryKey::~RegistryKey() {
  if (key_ != nullptr) RegCloseKey(key_);
}

std::optional<std::string> RegistryKey::Text(const std::string& name) const {
  const std::wstring wide = WideText(name);
  std::wstring text;
  DWORD bytes = 0;
  LSTATUS status = ERROR_MORE_DATA;
  // Asks for the size first, and again whenever the value has grown meanwhile.
  RegGetValueW(key_, nullptr, wide.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &bytes);
  while (status == ERROR_MORE_DATA) {
    text.resize(bytes / sizeof(wchar_t) + 1);
    bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    status = RegGetValueW(key_, nullptr, wide.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
  }
  if (status != ERROR_SUCCESS) return std::nullopt;
  text.resize(std::min(text.find(L'\0'), text.size()));
  return NarrowText(text);
}

void RegistryKey::SetText(const std::string& name, const std::string& text) const {
  if ((name + text).find('\0') != std::string::npos) throw Failure("a zero character in a registry value", name);
  const std::wstring wide = WideText(text);
  const auto bytes = static_cast<DWORD>((wide.size() + 1) * sizeof(wchar_t));
  const auto* data = reinterpret_cast<const BYTE*>(wide.c_str());
  if (RegSetValueExW(key_, WideText(name).c_str(), 0, REG_SZ, data, bytes) != ERROR_SUCCESS)
    throw Failure("registry value can't be written", name);
}

void RegistryKey::Delete(const std::string& name) const {
  const LSTATUS status = RegDeleteValueW(key_, WideText(name).c_str());
  if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND)
    throw Failure("registry value can't be deleted", name);
}

std::vector<std::string> RegistryKey::ValueNames() const {
  std::vector<std::string> names;
  std::wstring name(kMostNameCharacters, L'\0');
  for (DWORD index = 0;; ++index) {
    DWORD length = kMostNameCharacters;
    if (RegEnumValueW(key_, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
    names.push_back(NarrowText(name.substr(0, length)));
  }
  return names;
}

std::vector<std::string> RegistryKey::KeyNames() const {
  std::vector<std::string> names;
  std::wstring name(kMostNameCharacters, L'\0');
  for (DWORD index = 0;; ++index) {
    DWORD length = kMostNameCharacters;
    if (RegEnumKeyExW(key_, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
    names.push_back(NarrowText(name.substr(0, length)));
  }
  return names;
}

}  // namespace qublet
