#pragma once

#include <QMimeData>
#include <QUrl>
#include <optional>
#include <string>
#include <vector>

namespace qublet {

// Files as drag and drop carries them: "file:" addresses for paths in this system's own form.

// Of an absolute native path. Bytes that aren't UTF-8 are kept as they are.
QUrl FileUrl(const std::string& native);

// Nothing for an address that isn't a file of this machine: another scheme, another host, a name that no file can
// bear.
std::optional<std::string> NativePath(const QUrl& url);

// The files among the addresses that a drag offers, in their order; the others are left out.
std::vector<std::string> NativePaths(const QMimeData& data);

}  // namespace qublet
