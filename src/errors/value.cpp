#include "errors/value.h"

#include "base/quotable.h"

namespace quillon::errors {
namespace {

struct Renderer {
  std::string operator()(Array) const { return "[ARRAY]"; }
  std::string operator()(Null) const { return "[NULL]"; }
  std::string operator()(Empty) const { return "[EMPTY]"; }
  std::string operator()(Nothing) const { return "[NOTHING]"; }
  std::string operator()(const Object& object) const {
    return "[OBJECT:" + std::string(object.type) + "]";
  }
  // A line break in a file's name must not start a line of the protocol.
  std::string operator()(const std::string& text) const { return base::quotable(text); }
};

}  // namespace

std::string renderValue(const Value& value) { return std::visit(Renderer{}, value); }

}  // namespace quillon::errors
