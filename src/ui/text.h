#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace orvex {

/// The texts of the core are UTF-8; these two are where they change hands.
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

}  // namespace orvex
