#pragma once

#include <string_view>

namespace quillon::base {

/// Takes bytes in order, e.g. of a script or a report. May throw; the writer then stops.
class ByteSink {
 public:
  virtual ~ByteSink() = default;
  virtual void write(std::string_view block) = 0;
};

}  // namespace quillon::base
