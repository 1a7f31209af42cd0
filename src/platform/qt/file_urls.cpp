#include "platform/qt/file_urls.h"

#include <QDir>
#include <QSysInfo>

namespace qublet {
namespace {

bool IsThisMachine(const QString& host) {
  return host.isEmpty() || host.compare(QStringLiteral("localhost"), Qt::CaseInsensitive) == 0 ||
         host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
}

// Where paths have backslashes, another host's files can be reached by a path too.
bool HostsHaveShares() {
  return QDir::separator() == u'\\';
}

}  // namespace

QUrl FileUrl(const std::string& native) {
  const QByteArray bytes = QByteArray::fromStdString(native);
  if (bytes.isValidUtf8()) return QUrl::fromLocalFile(QString::fromUtf8(bytes));
  return QUrl::fromEncoded("file://" + bytes.toPercentEncoding("/"));
}

std::optional<std::string> NativePath(const QUrl& url) {
  if (!url.isLocalFile()) return {};
  QUrl here = url;
  if (IsThisMachine(url.host())) {
    here.setHost(QString());
  } else if (!HostsHaveShares()) {
    return {};
  }
  const QByteArray bytes = QByteArray::fromPercentEncoding(here.path(QUrl::FullyEncoded).toUtf8());
  if (bytes.isEmpty() || bytes.contains('\0')) return {};
  return bytes.isValidUtf8() ? here.toLocalFile().toStdString() : bytes.toStdString();
}

std::vector<std::string> NativePaths(const QMimeData& data) {
  std::vector<std::string> paths;
  for (const QUrl& url : data.urls()) {
    if (std::optional<std::string> path = NativePath(url)) paths.push_back(std::move(*path));
  }
  return paths;
}

}  // namespace qublet
