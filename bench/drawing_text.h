#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace quillon::bench {

/// The text of a drawing, group by group with CR LF, passed on in blocks.
class DrawingText {
 public:
  using Sink = std::function<void(std::string_view)>;

  explicit DrawingText(Sink sink) : sink_(std::move(sink)) { buffer_.reserve(kBlock + kReserve); }

  DrawingText& group(int code, std::string_view value);
  DrawingText& integer(int code, std::int64_t value);
  /// With at most 16 significant digits and at least one decimal.
  DrawingText& number(int code, double value);
  DrawingText& point(int xCode, double x, double y);

  DrawingText& beginSection(std::string_view name) { return group(0, "SECTION").group(2, name); }
  DrawingText& endSection() { return group(0, "ENDSEC"); }
  DrawingText& beginTable(std::string_view name, std::size_t entries);
  DrawingText& endTable() { return group(0, "ENDTAB"); }

  /// What drawings since 2000 have before every entity: handle, owner, layer.
  DrawingText& beginEntity(std::string_view name, std::string_view layer);

  /// Number of characters so far.
  std::size_t size() const { return handedOn_ + buffer_.size(); }
  /// Ends the file.
  void finish();

 private:
  static constexpr std::size_t kBlock = std::size_t{1} << 20;
  static constexpr std::size_t kReserve = 256;

  void code(int code);
  DrawingText& endGroup();

  Sink sink_;
  std::string buffer_;
  std::size_t handedOn_ = 0;
  std::uint64_t handle_ = 0x100;
};

}  // namespace quillon::bench
