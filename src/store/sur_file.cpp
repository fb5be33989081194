#include "store/sur_file.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "model/survey_scheme.h"
#include "model/version.h"
#include "store/content_kind.h"
#include "store/durable_file.h"
#include "store/field_reader.h"
#include "store/format_error.h"
#include "store/numbers.h"

namespace orvex {
namespace {

constexpr std::string_view kStars = "*********";
constexpr std::string_view kTitle = "MATRICES";
constexpr std::size_t kSeparatorLength = 76;

bool IsOneLine(std::string_view heading) {
  return heading.find('\n') == std::string_view::npos;
}

class SurReader {
 public:
  explicit SurReader(const DecodedText& file) : fields_(file.text) {
    file_.encoding = file.encoding;
  }

  SurFile Read() {
    ReadIdentity();
    fields_.Line("the title");
    fields_.Line("the heading of the first group");
    for (std::size_t group = 0; group < kCheckGroups; ++group) ReadGroup(group);
    for (const SurveyScale& scale : kSurveyScales) ReadScale(scale);
    return std::move(file_);
  }

 private:
  void ReadIdentity() {
    std::string_view first = fields_.Field("the banner or the school number");
    if (!IsNumber(first)) first = fields_.Field("the school number");
    file_.identity.SchoolNum = IdentityText(first, "the school number");
    file_.identity.ClassNum = IdentityText(fields_.Field("the class number"), "the class number");
    file_.identity.ObservNum =
        IdentityText(fields_.Field("the observation number"), "the observation number");
  }

  /// The file will be saved under these numbers, so they must be able to name a file.
  std::string IdentityText(std::string_view field, const char* what) const {
    const auto number = ParseNumber(field);
    const auto whole = number ? ToInt16(*number) : std::nullopt;
    if (!whole || *number < 0) fields_.Fail(std::string(what) + " from 0 to 32767");
    return std::to_string(*whole);
  }

  /// Reads `field`, a number of any size, as a whole number from 0 to below `end`. Throws
  /// FormatError for any other.
  std::size_t NumberBelow(std::string_view field, std::size_t end, const char* what) const {
    const auto number = ParseNumber(field);
    const auto whole = number ? ToInt16(*number) : std::nullopt;
    if (!whole || *whole < 0 || static_cast<std::size_t>(*whole) >= end) {
      fields_.Fail(std::string(what) + " from 0 to " + std::to_string(end - 1));
    }
    return static_cast<std::size_t>(*whole);
  }

  void ReadGroup(std::size_t group) {
    const std::size_t items = SurveyGroups()[group].items.size();
    // The second half of the double heading may stand on a line of its own.
    bool halfHeading = group == kTypesOfWritingGroup && IsOneLine(heading_);
    for (;;) {
      const std::string_view field = fields_.Field("an item number or the next heading");
      if (IsNumber(field)) {
        const std::size_t item = NumberBelow(field, items, "an item number");
        file_.answers.checks[group].set(item);
        if (group == 0 && item == kOtherItem) {
          file_.answers.other = fields_.Line("the text of \"other:\"");
        }
      } else if (!halfHeading || !IsOneLine(field)) {
        heading_ = field;
        return;
      }
      halfHeading = false;
    }
  }

  void ReadScale(const SurveyScale& scale) {
    fields_.Field("the heading of a scale");
    for (int i = scale.first; i < scale.first + scale.count; ++i) {
      const auto statement = static_cast<std::size_t>(i);
      const std::string_view field = fields_.Field("a rating");
      if (field == kNotApplicable) continue;
      if (!IsNumber(field)) fields_.Fail("a rating: a button number or N/A");
      const auto buttons = static_cast<std::size_t>(SurveyStatements()[statement].Buttons());
      file_.answers.ratings[statement] =
          static_cast<std::int16_t>(NumberBelow(field, buttons, "a button number"));
    }
  }

  FieldReader fields_;
  SurFile file_;
  std::string_view heading_;  ///< the heading read last
};

}  // namespace

SurFile ParseSur(std::string bytes) {
  const DecodedText file = Decode(std::move(bytes));
  try {
    return SurReader(file).Read();
  } catch (const FormatError& error) {
    FailAs(ContentKind::survey, file.text, error);
  }
}

SurFile ReadSurFile(const std::filesystem::path& path) {
  return ParseSur(ReadFile(path));
}

std::string FormatSur(const SurFile& file) {
  std::string text;
  const auto line = [&text](std::string_view content) { text.append(content).append("\r\n"); };
  const std::string stars(kStars);
  line(stars + " Orvex " + VersionText() + " SUR file " + stars);
  const Identity& identity = file.identity;
  line(identity.SchoolNum + ", " + identity.ClassNum + ", " + identity.ObservNum);
  line(kTitle);
  for (std::size_t group = 0; group < kCheckGroups; ++group) {
    const SurveyGroup& scheme = SurveyGroups()[group];
    line(scheme.heading);
    for (std::size_t item = 0; item < scheme.items.size(); ++item) {
      if (!file.answers.checks[group].test(item)) continue;
      line(std::to_string(item));
      if (group == 0 && item == kOtherItem) line(OneLine(file.answers.other));
    }
  }
  line(std::string(kSeparatorLength, '='));
  for (const SurveyScale& scale : kSurveyScales) {
    line(scale.name);
    for (int i = scale.first; i < scale.first + scale.count; ++i) {
      const std::int16_t rating = file.answers.ratings[static_cast<std::size_t>(i)];
      line(rating == kUncoded ? std::string(kNotApplicable) : std::to_string(rating));
    }
  }
  return Encode(std::move(text), file.encoding);
}

}  // namespace orvex
