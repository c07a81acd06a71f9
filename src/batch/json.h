// json.h - a writer for JSON objects on one line. Numbers keep all their digits; those that JSON
// has no number for are written as the texts "inf", "-inf" and "nan".
#pragma once

#include <concepts>
#include <string>
#include <string_view>

namespace cantorix::batch {

class JsonLine {
 public:
  JsonLine& BeginObject(std::string_view key = {});
  JsonLine& EndObject();
  JsonLine& BeginArray(std::string_view key = {});
  JsonLine& EndArray();

  // `text` in any bytes: shown as UTF-8 when it is, else as Windows-1252.
  JsonLine& Text(std::string_view key, std::string_view text);
  JsonLine& Number(std::string_view key, double number);
  JsonLine& Integer(std::string_view key, std::integral auto number) {
    return Raw(key, std::to_string(number));
  }
  JsonLine& Flag(std::string_view key, bool flag) { return Raw(key, flag ? "true" : "false"); }

  // The whole line with its line feed.
  std::string Take();

 private:
  JsonLine& Raw(std::string_view key, std::string_view value);
  JsonLine& Open(std::string_view key, char bracket);
  JsonLine& Close(char bracket);
  void Begin(std::string_view key);

  std::string line_;
};

}  // namespace cantorix::batch
