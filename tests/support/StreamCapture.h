#pragma once

#include <ostream>
#include <sstream>
#include <string>

/// While it lives, what goes to a standard stream goes here instead.
class StreamCapture {
 public:
  explicit StreamCapture(std::ostream& stream) : _stream(stream), _before(stream.rdbuf(_text.rdbuf())) {}
  ~StreamCapture() { _stream.rdbuf(_before); }
  StreamCapture(const StreamCapture&) = delete;
  StreamCapture& operator=(const StreamCapture&) = delete;

  std::string Text() const { return _text.str(); }
  void Clear() { _text.str({}); }

 private:
  std::ostringstream _text;
  std::ostream& _stream;
  std::streambuf* _before;
};
