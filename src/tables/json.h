#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvex {

/// Appends one JSON value to a text, piece by piece. The caller must balance Begin and End.
class Json {
 public:
  explicit Json(std::string& text) : text_(text) {}

  Json& Key(std::string_view name);
  Json& BeginObject() { return Begin('{'); }
  Json& EndObject() { return End('}'); }
  Json& BeginArray() { return Begin('['); }
  Json& EndArray() { return End(']'); }
  /// `text` is UTF-8.
  Json& Text(std::string_view text);
  Json& Number(std::int64_t number);
  /// Nothing JSON has a word for is null.
  Json& Number(double number);
  Json& Number(float number);
  /// A number of seconds, as a whole one.
  Json& Seconds(double seconds);
  Json& Null() { return Literal("null"); }
  /// `literal` is JSON already.
  Json& Literal(std::string_view literal);

 private:
  Json& Begin(char bracket);
  Json& End(char bracket);
  template <typename Value>
  Json& Shortest(Value number);
  void Separate();
  void Quote(std::string_view text);

  std::string& text_;
  bool first_ = true;  ///< the next value needs no comma before it
};

}  // namespace orvex
