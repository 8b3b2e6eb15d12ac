#include "file_filter.h"

#include <QStringList>

namespace tessara {

namespace {

// The pieces of a text between `separator`s that stand outside parentheses: a name
// such as "C Source Files (*.c;*.h)" keeps its ";".
QStringList SplitOutsideParentheses(const QString& text, QChar separator) {
  QStringList pieces;
  QString piece;
  int depth = 0;
  for (QChar c : text) {
    if (c == '(') ++depth;
    if (c == ')' && depth > 0) --depth;
    if (c == separator && depth == 0) {
      pieces.append(piece);
      piece.clear();
    } else {
      piece.append(c);
    }
  }
  pieces.append(piece);
  return pieces;
}

// Name and pattern list of each entry, in order. Some filters write ";" between two
// pairs instead of "|", so a piece with parentheses always starts a new entry.
QList<QPair<QString, QStringList>> Entries(const char* filter) {
  QList<QPair<QString, QStringList>> entries;
  for (const QString& piece : SplitOutsideParentheses(QString::fromUtf8(filter), '|')) {
    for (const QString& part : SplitOutsideParentheses(piece, ';')) {
      QString text = part.trimmed();
      if (text.isEmpty()) continue;
      if (text.contains('(')) {
        entries.append({text, {}});
      } else if (!entries.isEmpty()) {
        entries.last().second.append(text);
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
