#include "dxf/group_cursor.h"

#include "dxf/run_time_error.h"

namespace quillon::dxf {

void GroupCursor::failAtEnd() const {
  throw RunTimeError(Fault::TextEndsTooEarly, {}, lines_.position());
}

}  // namespace quillon::dxf
