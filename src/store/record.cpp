#include "store/record.h"

#include "store/format_error.h"

namespace orvex {

void RecordWriter::Name(std::string_view name) {
  out_ += name;
  out_ += '=';
}

void RecordWriter::Text(std::string_view name, std::string_view value) {
  Name(name);
  for (const char c : value) {
    switch (c) {
      case '\\':
        out_ += "\\\\";
        break;
      case '\r':
        out_ += "\\r";
        break;
      case '\n':
        out_ += "\\n";
        break;
      default:
        out_ += c;
    }
  }
  out_ += "\r\n";
}

std::string_view RecordReader::Value(std::string_view name) {
  std::string_view line = fields_.Line(name);
  if (!line.starts_with(name) || !line.substr(name.size()).starts_with('=')) Fail(name);
  line.remove_prefix(name.size() + 1);
  return line;
}

void RecordReader::Text(std::string_view name, std::string& value) {
  const std::string_view text = Value(name);
  value.clear();
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      value += text[i];
      continue;
    }
    const char escaped = ++i < text.size() ? text[i] : ' ';
    switch (escaped) {
      case '\\':
        value += '\\';
        break;
      case 'r':
        value += '\r';
        break;
      case 'n':
        value += '\n';
        break;
      default:
        Fail(name);
    }
  }
}

void RecordReader::Number(std::string_view name, bool& value) {
  int number = 0;
  Number(name, number);
  if (number != 0 && number != 1) Fail(name);
  value = number == 1;
}

void RecordReader::End() const {
  if (!AtEnd()) throw FormatError(fields_.LineNumber() + 1, "the end of the record");
}

void RecordReader::Fail(std::string_view what) const {
  throw FormatError(fields_.LineNumber(), std::string(what) + "=, with a value");
}

}  // namespace orvex
