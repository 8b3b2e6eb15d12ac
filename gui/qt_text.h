#ifndef TESSARA_GUI_QT_TEXT_H_
#define TESSARA_GUI_QT_TEXT_H_

#include <QString>
#include <QStringDecoder>
#include <string>

namespace tessara {

// The core's texts are bytes as the data files hold them: UTF-8 where they are valid
// UTF-8, otherwise the Latin-1 of older data files.
inline QString ToQt(const std::string& text) {
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  QString decoded = utf8(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())));
  if (!utf8.hasError()) return decoded;
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) { return text.toStdString(); }

}  // namespace tessara

#endif  // TESSARA_GUI_QT_TEXT_H_
