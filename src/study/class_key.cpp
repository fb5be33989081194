#include "study/class_key.h"

#include "store/paths.h"
#include "study/found_files.h"

namespace orvex {

ClassKey ClassKeyOf(Identity identity, const std::string& date) {
  NormaliseNumbers(identity);
  return {NameKey(identity.SchoolNum), NameKey(identity.ClassNum), date};
}

}  // namespace orvex
