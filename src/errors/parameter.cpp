#include "errors/parameter.h"

#include "base/quotable.h"

namespace quillon::errors {

// A line break in a file's name must not start a line of the protocol.
std::string rendered(std::string_view text) { return base::quotable(text); }

std::string rendered(std::nullopt_t) { return "[NULL]"; }

std::string rendered(std::monostate) { return "[EMPTY]"; }

std::string rendered(std::nullptr_t) { return "[NOTHING]"; }

std::string rendered(const void* object, std::string_view type) {
  return object == nullptr ? rendered(nullptr) : "[OBJECT:" + std::string(type) + "]";
}

std::string parameterRecord(std::string_view name, std::string_view renderedValue) {
  return std::string(name) + ":\t" + std::string(renderedValue);
}

}  // namespace quillon::errors
