#pragma once

#include <cctype>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace orvex::test {

/// One operation on a file: its numeric arguments, and a text if it has one.
struct EditOperation {
  std::string name;
  std::vector<std::vector<int>> arguments;  ///< a single number is a list of one
  std::string text;
};

struct EditSequence {
  std::string file;
  std::vector<EditOperation> operations;
};

/// Reads edits/operations.json, whose texts contain no escapes.
inline std::vector<EditSequence> ReadEditSequences(const std::string& path) {
  std::ifstream file(path);
  const std::string json(std::istreambuf_iterator<char>(file), {});
  std::vector<EditSequence> sequences;
  std::string key;
  int depth = 0;  // of brackets within a list of arguments
  for (std::size_t at = 0; at < json.size(); ++at) {
    const char c = json[at];
    auto* operation = sequences.empty() || sequences.back().operations.empty()
                          ? nullptr
                          : &sequences.back().operations.back();
    if (c == '"') {
      const std::size_t end = json.find('"', at + 1);
      const std::string text = json.substr(at + 1, end - at - 1);
      at = end;
      if (depth > 0) {
        operation->text = text;
      } else if (key == "file") {
        sequences.push_back({text, {}});
        key.clear();
      } else if (key == "operation") {
        sequences.back().operations.push_back({text, {}, {}});
        key.clear();
      } else {
        key = text;
      }
    } else if (key != "arguments") {
      continue;
    } else if (c == '[') {
      if (++depth == 2) operation->arguments.emplace_back();
    } else if (c == ']') {
      if (--depth == 0) key.clear();
    } else if (std::isdigit(static_cast<unsigned char>(c)) != 0) {
      std::size_t digits = 0;
      const int number = std::stoi(json.substr(at, 12), &digits);
      at += digits - 1;
      if (depth == 1) operation->arguments.emplace_back();
      operation->arguments.back().push_back(number);
    }
  }
  return sequences;
}

}  // namespace orvex::test
