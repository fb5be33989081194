#include "store/text_encoding.h"

#include <gtest/gtest.h>

namespace orvex {
namespace {

TEST(TextEncoding, EveryByteOfAnOldFileSurvives) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const DecodedText decoded = Decode(bytes);
  EXPECT_EQ(decoded.encoding, Encoding::windows1252);
  EXPECT_EQ(Encode(decoded.text, Encoding::windows1252), bytes);
  EXPECT_EQ(Decode("\x80 \x93 caf\xE9 \x81").text, "\u20ac \u201c caf\u00e9 \xC2\x81");
}

TEST(TextEncoding, OnlyStrictUtf8IsUtf8) {
  struct Case {
    const char* bytes;
    bool utf8;
  };
  // Cut, no continuation, nothing but one, too long three times, half a surrogate pair, beyond.
  constexpr Case kCases[] = {{"", true},
                             {"plain text, longer than eight bytes", true},
                             {"12345678\xC3\xA9", true},
                             {"\xE2\x82\xAC\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF", true},
                             {"1234567\xC3", false},
                             {"\xC3\x28", false},
                             {"\xA9", false},
                             {"\xC1\xBF", false},
                             {"\xE0\x9F\xBF", false},
                             {"\xF0\x8F\xBF\xBF", false},
                             {"\xED\xA0\x80", false},
                             {"\xF4\x90\x80\x80", false}};
  for (const auto& [bytes, utf8] : kCases) {
    const DecodedText decoded = Decode(bytes);
    EXPECT_EQ(decoded.encoding == Encoding::utf8, utf8) << bytes;
    EXPECT_EQ(Encode(decoded.text, decoded.encoding), bytes);
  }
  EXPECT_EQ(Decode("\xEF\xBB\xBF, 12").text, ", 12");
}

TEST(TextEncoding, WhatWindows1252CannotHoldIsWrittenAsUtf8) {
  for (const char* text : {
           "\u0141\u00f3d\u017a",  // no such letters
           "\u0080",               // its byte is the euro sign's
           "\u00c3\u00a9",         // its bytes would be read as UTF-8
       }) {
    EXPECT_EQ(Encode(text, Encoding::windows1252), text);
  }
}

TEST(TextEncoding, ARunOfLineBreaksIsOneBlank) {
  constexpr std::pair<const char*, const char*> kCases[] = {
      {"one line", "one line"}, {"a\r\nb", "a b"}, {"a\n\n\rb\rc", "a b c"},
      {"\r\na\n", " a "},       {"\n", " "},       {"", ""},
  };
  for (const auto& [text, line] : kCases) EXPECT_EQ(OneLine(text), line);
}

}  // namespace
}  // namespace orvex
