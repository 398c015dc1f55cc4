#include "dxf/group_cursor.h"

#include "base/run_time_error.h"

namespace quillon::dxf {

void GroupCursor::failAtEnd(const char* position) {
  throw base::RunTimeError(base::Fault::TextEndsTooEarly, {}, position);
}

}  // namespace quillon::dxf
