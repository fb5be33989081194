#include "fuzz/checks.h"
#include "store/text_encoding.h"

namespace orvex::fuzz {

std::optional<std::string> CheckTextEncoding(std::string_view bytes) {
  const DecodedText decoded = Decode(std::string(bytes));
  const DecodedText again = Decode(decoded.text);
  Require(again.encoding == Encoding::utf8, "a decoded text is UTF-8");
  Require(again.text == decoded.text, "a decoded text has no byte order mark");
  const std::string written = Encode(decoded.text, decoded.encoding);
  Require(bytes.ends_with(written), "every byte survives");
  Require(Decode(written).text == decoded.text, "a text comes back as it was");
  // Text from any file may end up in a file of the other encoding.
  Require(Decode(Encode(decoded.text, Encoding::windows1252)).text == decoded.text,
          "a text comes back from a file that was Windows-1252");
  const std::string line = OneLine(decoded.text);
  Require(line.find_first_of("\r\n") == std::string::npos, "one line has no line breaks");
  return written;
}

}  // namespace orvex::fuzz
