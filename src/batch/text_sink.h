// text_sink.h - where a table goes: standard output or another stream, a file that appears whole or
// not at all, or a spool that is poured out when its turn comes.
#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <string_view>

#include "batch/spool.h"
#include "platform/safe_file.h"

namespace cantorix::batch {

// Texts are collected, and handed on when they are so long.
inline constexpr std::size_t kPieceBytes = std::size_t{1} << 16U;

class TextSink {
 public:
  virtual ~TextSink() = default;
  // Throws FileError when the text cannot be kept.
  virtual void Write(std::string_view text) = 0;
  // Everything was written: makes it final. Without it a file is dropped. Throws FileError.
  virtual void Finish() = 0;
};

// Writes in pieces to an open descriptor. Write and Finish throw Abandoned after an interrupt.
class StreamSink : public TextSink {
 public:
  StreamSink(int descriptor, const std::atomic<bool>& interrupted)
      : descriptor_(descriptor), interrupted_(interrupted) {}
  void Write(std::string_view text) override;
  void Finish() override;

 private:
  int descriptor_;
  const std::atomic<bool>& interrupted_;
  std::string pending_;
};

class FileSink : public TextSink {
 public:
  explicit FileSink(const std::string& path) : file_(path) {}
  void Write(std::string_view text) override;
  void Finish() override { file_.Commit(); }

 private:
  SafeFile file_;
};

// Puts a header line before the first text that goes through.
class HeaderedSink : public TextSink {
 public:
  HeaderedSink(TextSink& inner, std::string header) : inner_(inner), header_(std::move(header)) {}
  void Write(std::string_view text) override;
  void Finish() override;

 private:
  TextSink& inner_;
  std::string header_;  // empty once it is written
};

// Keeps what it is given until it is poured out.
class SpoolSink : public TextSink {
 public:
  void Write(std::string_view text) override;
  void Finish() override {}
  void PourInto(TextSink& sink);

 private:
  Spool spool_;
};

}  // namespace cantorix::batch
