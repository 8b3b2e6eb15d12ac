#include "file_filter.h"

#include <QStringList>

namespace tessara {

namespace {

// Name and pattern list of each entry, in order. A data file may write the pairs with
// ";" between them as well as "|", so an entry's patterns are everything up to the next
// text that holds a blank or parentheses, i.e. the next name.
QList<QPair<QString, QStringList>> Entries(const char* filter) {
  QList<QPair<QString, QStringList>> entries;
  const QStringList pieces = QString::fromUtf8(filter).split('|', Qt::SkipEmptyParts);
  for (const QString& piece : pieces) {
    if (piece.contains('(')) {
      entries.append({piece.trimmed(), {}});
      continue;
    }
    if (entries.isEmpty()) continue;
    for (const QString& pattern : piece.split(';', Qt::SkipEmptyParts)) {
      if (pattern.contains('(')) {
        entries.append({pattern.trimmed(), {}});
      } else {
        entries.last().second.append(pattern.trimmed());
      }
    }
  }
  return entries;
}

}  // namespace

QString QtFileFilter(const char* filter) {
  QStringList parts;
  for (const auto& entry : Entries(filter)) {
    QString name = entry.first;
    int open = name.indexOf('(');
    QString label = name.left(open).trimmed();
    QStringList patterns = entry.second;
    // "*.*" means every file, also those without a dot in their name.
    patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
    parts.append(label + " (" + patterns.join(' ') + ")");
  }
  return parts.join(";;");
}

QString DefaultSuffix(const char* filter) {
  const auto entries = Entries(filter);
  if (entries.isEmpty() || entries.first().second.isEmpty()) return {};
  QString pattern = entries.first().second.first();
  int dot = pattern.lastIndexOf('.');
  QString suffix = dot < 0 ? QString() : pattern.mid(dot + 1);
  return suffix == "*" ? QString() : suffix;
}

}  // namespace tessara
