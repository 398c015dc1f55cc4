#include "dxf/group_cursor.h"

#include "dxf/run_time_error.h"

namespace quillon::dxf {

void GroupCursor::failAtEnd(const char* position) {
  throw RunTimeError(Fault::TextEndsTooEarly, {}, position);
}

}  // namespace quillon::dxf
