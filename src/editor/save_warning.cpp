#include "editor/save_warning.h"

#include <algorithm>
#include <string>
#include <vector>

#include "model/texts.h"
#include "model/version.h"
#include "store/eps_differences.h"

namespace orvex {
namespace {

std::string Joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : ", ") + text;
  return all;
}

/// One line for each place, up to the number that a message box has room for.
std::string PlacesOf(const EpsDifferences& differences) {
  constexpr std::size_t kMost = 10;
  const auto& all = differences.contents;
  const std::size_t shown = std::min(all.size(), kMost);
  std::string lines;
  for (std::size_t i = 0; i < shown; ++i) {
    lines += Say(Text::placeDropped, {all[i].line, all[i].text});
  }
  if (shown < all.size())
    lines += Say(Text::morePlaces, {Counted(all.size() - shown, Text::onePlace, Text::places)});
  if (!differences.form.empty()) lines += Say(Text::formDropped, {Joined(differences.form)});
  return lines;
}

}  // namespace

std::optional<Message> SaveWarning(const EpsDifferences& differences,
                                   const std::filesystem::path& path) {
  const std::size_t places = differences.contents.size();
  if (places > 0) {
    return Message{.text = Say(Text::saveDrops, {Counted(places, Text::onePlace, Text::places)}),
                   .details = path.string() + PlacesOf(differences)};
  }
  if (differences.None() || differences.OnlyBanner()) return std::nullopt;
  return Message{.text = Say(Text::saveRewrites, {VersionText(), Joined(differences.form)})};
}

}  // namespace orvex
