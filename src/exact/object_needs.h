#pragma once

#include <string_view>

#include "exact/clip_filters.h"
#include "exact/mline_styles.h"

namespace quillon::exact {

/// What entities need of the OBJECTS section, which comes after them.
class ObjectNeeds final : public dxf::ObjectSink {
 public:
  ObjectNeeds(base::Encoding encoding, ShapeSink& sink, LossList& losses)
      : clipFilters(losses), mlineStyles(encoding, sink, losses) {}

  bool empty() const { return clipFilters.empty() && mlineStyles.empty(); }

  void takeGroup(int code, std::string_view value) override {
    clipFilters.takeGroup(code, value);
    mlineStyles.takeGroup(code, value);
  }
  void endOfObjects() override {
    clipFilters.endOfObjects();
    mlineStyles.endOfObjects();
  }

  ClipFilters clipFilters;
  MlineStyles mlineStyles;
};

}  // namespace quillon::exact
