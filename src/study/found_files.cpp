#include "study/found_files.h"

#include <algorithm>
#include <compare>
#include <cstddef>
#include <system_error>
#include <tuple>

#include "store/file_error.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Takes a number, without its leading zeros, or else one other character off `text`.
std::string_view TakePart(std::string_view& text) {
  std::size_t length = 0;
  while (length < text.size() && IsDigit(text[length])) ++length;
  std::string_view part = text.substr(0, std::max<std::size_t>(length, 1));
  text.remove_prefix(part.size());
  while (part.size() > 1 && part.front() == '0') part.remove_prefix(1);
  return part;
}

std::strong_ordering CompareParts(std::string_view a, std::string_view b) {
  if (IsDigit(a.front()) && IsDigit(b.front()) && a.size() != b.size()) {
    return a.size() <=> b.size();
  }
  return a <=> b;
}

std::strong_ordering CompareNames(std::string_view a, std::string_view b) {
  std::string_view restOfA = a;
  std::string_view restOfB = b;
  while (!restOfA.empty() && !restOfB.empty()) {
    const auto order = CompareParts(TakePart(restOfA), TakePart(restOfB));
    if (order != 0) return order;
  }
  const auto order = restOfA.size() <=> restOfB.size();
  return order != 0 ? order : a <=> b;  // "05" and "5" have an order, too
}

}  // namespace

std::string ObservationName(const fs::path& file) {
  const fs::path folder = file.parent_path();
  auto tree = folder.end();
  for (auto part = folder.begin(); part != folder.end(); ++part) {
    if (IsTreeName(*part)) tree = part;
  }
  fs::path name;
  for (auto part = folder.begin(); part != folder.end(); ++part) {
    if (part != tree && *part != ".") name /= *part;
  }
  return (name / file.stem()).string();
}

bool ComesBefore(std::string_view a, std::string_view b) {
  return CompareNames(a, b) < 0;
}

std::vector<FoundFile> FindFiles(const fs::path& folder, const std::function<bool()>& stops) {
  std::error_code error;
  fs::recursive_directory_iterator at(folder, fs::directory_options::skip_permission_denied, error);
  if (error) throw FileError(folder, error.value());
  std::vector<FoundFile> found;
  for (; at != fs::recursive_directory_iterator(); at.increment(error)) {
    if (error || (stops && stops())) break;
    const FileKind kind = KindOf(at->path());
    std::error_code unknown;
    if (kind == FileKind::other || !at->is_regular_file(unknown)) continue;
    found.push_back({ObservationName(at->path().lexically_relative(folder)), at->path(), kind});
  }
  std::ranges::sort(found, [](const FoundFile& a, const FoundFile& b) {
    const auto order = CompareNames(a.name, b.name);
    if (order != 0) return order < 0;
    return std::tie(a.kind, a.path) < std::tie(b.kind, b.path);
  });
  return found;
}

}  // namespace orvex
