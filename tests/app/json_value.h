#pragma once

#include <cmath>
#include <cstdlib>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::testing {

/// A strict JSON parser: anything that the grammar forbids, duplicate names in an object, and
/// invalid UTF-8 are errors.
class JsonValue {
 public:
  enum class Kind { Null, Boolean, Number, String, Array, Object };

  /// Parses a text that consists of exactly one value. Throws std::runtime_error.
  static JsonValue parse(std::string_view text) {
    Reader reader{text};
    JsonValue value = reader.value();
    reader.skipBlanks();
    if (!reader.rest.empty()) reader.fail("text after the value");
    return value;
  }

  Kind kind() const { return kind_; }
  bool isNull() const { return kind_ == Kind::Null; }
  bool boolean() const { return expect(Kind::Boolean).boolean_; }
  double number() const { return expect(Kind::Number).number_; }
  const std::string& text() const { return expect(Kind::String).text_; }
  const std::vector<JsonValue>& items() const { return expect(Kind::Array).items_; }
  const JsonValue& at(const std::string& name) const {
    const auto found = expect(Kind::Object).members_.find(name);
    if (found == members_.end()) throw std::runtime_error("no member " + name);
    return found->second;
  }
  /// The names of an object's members, sorted.
  std::vector<std::string> names() const {
    std::vector<std::string> out;
    for (const auto& [name, value] : expect(Kind::Object).members_) out.push_back(name);
    return out;
  }

 private:
  const JsonValue& expect(Kind kind) const {
    if (kind_ != kind) throw std::runtime_error("a JSON value of another kind");
    return *this;
  }

  struct Reader {
    std::string_view rest;

    [[noreturn]] void fail(const std::string& what) const {
      throw std::runtime_error("JSON: " + what + " before \"" + std::string(rest.substr(0, 20)) +
                               "\"");
    }
    void skipBlanks() {
      while (!rest.empty() && std::string_view(" \t\r\n").find(rest[0]) != rest.npos) advance(1);
    }
    void advance(std::size_t count) { rest.remove_prefix(count); }
    bool accept(std::string_view word) {
      if (!rest.starts_with(word)) return false;
      advance(word.size());
      return true;
    }
    void require(std::string_view word) {
      if (!accept(word)) fail("no " + std::string(word));
    }

    JsonValue value() {
      skipBlanks();
      JsonValue out;
      if (rest.empty()) fail("nothing");
      if (rest[0] == '{') {
        object(out);
      } else if (rest[0] == '[') {
        array(out);
      } else if (rest[0] == '"') {
        out.kind_ = Kind::String;
        out.text_ = string();
      } else if (rest[0] == 't' || rest[0] == 'f') {
        out.kind_ = Kind::Boolean;
        out.boolean_ = accept("true");
        if (!out.boolean_) require("false");
      } else if (!accept("null")) {
        out.kind_ = Kind::Number;
        out.number_ = number();
      }
      return out;
    }

    void object(JsonValue& out) {
      out.kind_ = Kind::Object;
      require("{");
      skipBlanks();
      if (accept("}")) return;
      do {
        skipBlanks();
        const std::string name = string();
        skipBlanks();
        require(":");
        if (!out.members_.emplace(name, value()).second) fail("second " + name);
        skipBlanks();
      } while (accept(","));
      require("}");
    }

    void array(JsonValue& out) {
      out.kind_ = Kind::Array;
      require("[");
      skipBlanks();
      if (accept("]")) return;
      do {
        out.items_.push_back(value());
        skipBlanks();
      } while (accept(","));
      require("]");
    }

    double number() {
      const std::string_view start = rest;
      accept("-");
      const bool leadingZero = rest.starts_with("0");
      if (const std::size_t count = digits(); count == 0 || (leadingZero && count > 1)) {
        fail("no number");
      }
      if (accept(".") && digits() == 0) fail("no fraction");
      if (accept("e") || accept("E")) {
        if (!accept("+")) accept("-");
        if (digits() == 0) fail("no exponent");
      }
      return std::strtod(std::string(start.substr(0, start.size() - rest.size())).c_str(), nullptr);
    }
    std::size_t digits() {
      const std::size_t count = std::min(rest.find_first_not_of("0123456789"), rest.size());
      advance(count);
      return count;
    }

    std::string string() {
      require("\"");
      std::string out;
      while (!accept("\"")) {
        if (rest.empty()) fail("no end of a string");
        if (static_cast<unsigned char>(rest[0]) < 0x20) fail("a control character");
        if (accept("\\")) {
          out += escaped();
        } else {
          const std::size_t length = characterLength();
          out += rest.substr(0, length);
          advance(length);
        }
      }
      return out;
    }

    /// Supports only escapes of characters up to U+00FF.
    std::string escaped() {
      constexpr std::string_view kLetters = "\"\\/bfnrt";
      constexpr std::string_view kMeanings = "\"\\/\b\f\n\r\t";
      if (rest.empty()) fail("no escape");
      if (accept("u00")) {
        const int code = std::stoi(std::string(rest.substr(0, 2)), nullptr, 16);
        advance(2);
        if (code < 0x80) return {static_cast<char>(code)};
        return {static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
      }
      const std::size_t index = kLetters.find(rest[0]);
      if (index == kLetters.npos) fail("an unknown escape");
      advance(1);
      return {kMeanings[index]};
    }

    std::size_t characterLength() const {
      const auto byte = [this](std::size_t i) {
        return i < rest.size() ? static_cast<unsigned char>(rest[i]) : 0U;
      };
      const unsigned first = byte(0);
      if (first < 0x80) return 1;
      const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
      bool valid = first >= 0xC2 && first <= 0xF4;
      for (std::size_t i = 1; i < length; ++i) valid = valid && (byte(i) & 0xC0U) == 0x80U;
      // Overlong forms, surrogates and code points beyond Unicode.
      valid = valid && !(first == 0xE0 && byte(1) < 0xA0) && !(first == 0xED && byte(1) > 0x9F) &&
              !(first == 0xF0 && byte(1) < 0x90) && !(first == 0xF4 && byte(1) > 0x8F);
      if (!valid) fail("bytes that are no UTF-8");
      return length;
    }
  };

  Kind kind_ = Kind::Null;
  bool boolean_ = false;
  double number_ = 0.0;
  std::string text_;
  std::vector<JsonValue> items_;
  std::map<std::string, JsonValue> members_;
};

}  // namespace quillon::testing
