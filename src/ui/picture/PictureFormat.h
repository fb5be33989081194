#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace orvex {

enum class PictureFormat { svg, pdf, png };

struct PictureFormatScheme {
  PictureFormat format;
  std::string_view id;        ///< on the command line, and how its files end
  std::string_view fileType;  ///< what dialogs call its files
};
inline constexpr std::array<PictureFormatScheme, 3> kPictureFormats = {{
    {PictureFormat::svg, "svg", "SVG pictures"},
    {PictureFormat::pdf, "pdf", "PDF files"},
    {PictureFormat::png, "png", "PNG pictures"},
}};

inline const PictureFormatScheme& SchemeOf(PictureFormat format) {
  return kPictureFormats.at(static_cast<std::size_t>(format));
}

/// The format of this id; nothing if there is none.
inline std::optional<PictureFormat> PictureFormatNamed(std::string_view id) {
  const auto* const found = std::ranges::find(kPictureFormats, id, &PictureFormatScheme::id);
  return found == kPictureFormats.end() ? std::nullopt : std::optional(found->format);
}

}  // namespace orvex
