#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace orvex {

/// Converts between the core's UTF-8 and Qt's strings.
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

}  // namespace orvex
