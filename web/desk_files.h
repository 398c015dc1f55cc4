#pragma once

#include <emscripten/val.h>

#include <string>

namespace quillon::web {

/// Makes the current folder that the files below are in. To be called once, first.
void makeFolders();

/// A name that a file can have in the engine's current folder.
std::string fileName(std::string name);

/// A drawing in the current folder as long as this lives; its bytes stay in the page's File.
class MountedDrawing {
 public:
  MountedDrawing(const emscripten::val& file, std::string name);
  ~MountedDrawing();
  MountedDrawing(const MountedDrawing&) = delete;
  MountedDrawing& operator=(const MountedDrawing&) = delete;

  const std::string& name() const { return name_; }

 private:
  std::string name_;
};

/// A file in the current folder that only takes what is written, and holds it outside the engine's
/// memory.
class ScriptDevice {
 public:
  explicit ScriptDevice(std::string name);
  ~ScriptDevice();
  ScriptDevice(const ScriptDevice&) = delete;
  ScriptDevice& operator=(const ScriptDevice&) = delete;

  const std::string& name() const { return name_; }
  /// The Blob of what was written. The file is gone then.
  emscripten::val take();

 private:
  std::string name_;
  bool isOpen_ = true;
};

}  // namespace quillon::web
