#pragma once

#include <string_view>

namespace quillon::base {

/// Takes bytes in order: a script, a report. May throw; what wrote to it then ends.
class ByteSink {
 public:
  virtual ~ByteSink() = default;
  virtual void write(std::string_view block) = 0;
};

}  // namespace quillon::base
