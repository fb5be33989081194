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
  for (const char* bytes : {"", "12345678\xC3\xA9", "\xE2\x82\xAC\xF0\x9F\x98\x80"}) {
    EXPECT_EQ(Decode(bytes).encoding, Encoding::utf8) << bytes;
  }
  // Cut off, no continuation, a lone continuation, overlong, half a surrogate pair, out of range.
  for (const char* bytes :
       {"1234567\xC3", "\xC3\x28", "\xA9", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF4\x90\x80\x80"}) {
    EXPECT_EQ(Decode(bytes).encoding, Encoding::windows1252) << bytes;
  }
  EXPECT_EQ(Decode("\xEF\xBB\xBF, 12").text, ", 12");
  EXPECT_EQ(Decode("\xEF\xBB\xBF\xEF\xBB\xBF, 12").text, ", 12");
}

TEST(TextEncoding, WhatWindows1252CannotHoldIsWrittenAsUtf8) {
  // A letter that it lacks; a character whose byte is the euro sign's; bytes that would read as
  // UTF-8.
  for (const char* text : {"\u0141", "\u0080", "\u00c3\u00a9"}) {
    EXPECT_EQ(Encode(text, Encoding::windows1252), text);
  }
}

}  // namespace
}  // namespace orvex
