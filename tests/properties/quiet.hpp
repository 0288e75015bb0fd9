#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

/// Keeps what the program prints to its stream of errors. The sanitizers write past the stream, to
/// the descriptor, and are heard all the same.
class KeptErrors {
 public:
  KeptErrors() : before_(stderr), kept_(open_memstream(&text_, &size_)) { stderr = kept_; }
  KeptErrors(const KeptErrors&) = delete;
  KeptErrors& operator=(const KeptErrors&) = delete;
  ~KeptErrors() {
    stderr = before_;
    std::fclose(kept_);
    std::free(text_);
  }

  std::string text() {
    std::fflush(kept_);
    return {text_, size_};
  }

 private:
  std::FILE* before_;
  char* text_ = nullptr;
  size_t size_ = 0;
  std::FILE* kept_;
};
