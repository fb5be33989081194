#include "start/about_program.h"

#include "model/program.h"
#include "model/texts.h"
#include "model/version.h"

namespace orvex {

ProgramFacts AboutProgram(const Services& services, const std::filesystem::path& manualFolder) {
  return {.product = Say(Text::productName, {VersionText()}),
          .purpose = Say(Text::companyProduct),
          .copyright = Say(Text::copyright),
          .version = FullVersionText(),
          .licence = Say(Text::licenceState),
          .dataFolder = services.program.DataPath.string(),
          .programFolder = services.programFolder.string(),
          .manual = manualFolder.empty() ? Say(Text::manualNotFound) : manualFolder.string()};
}

}  // namespace orvex
