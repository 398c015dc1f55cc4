#include "errors/system_info.h"

namespace quillon::errors {

std::string_view LpstrToString(std::string_view text) { return text.substr(0, text.find('\0')); }

}  // namespace quillon::errors
