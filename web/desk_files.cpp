#include "web/desk_files.h"

#include <algorithm>
#include <utility>

// In files.js.
extern "C" {
void quillonMakeFolders();
void quillonOpenDrawing(emscripten::EM_VAL file, const char* name);
void quillonCloseDrawing(const char* name);
void quillonOpenScript(const char* name);
emscripten::EM_VAL quillonCloseScript(const char* name);
}

namespace quillon::web {

void makeFolders() { quillonMakeFolders(); }

std::string fileName(std::string name) {
  const auto cannotBe = [](char c) { return c == '/' || c == '\0'; };
  std::replace_if(name.begin(), name.end(), cannotBe, '_');
  return name.empty() || name == "." || name == ".." ? "_" : name;
}

MountedDrawing::MountedDrawing(const emscripten::val& file, std::string name)
    : name_(std::move(name)) {
  quillonOpenDrawing(file.as_handle(), name_.c_str());
}

MountedDrawing::~MountedDrawing() { quillonCloseDrawing(name_.c_str()); }

ScriptDevice::ScriptDevice(std::string name) : name_(std::move(name)) {
  quillonOpenScript(name_.c_str());
}

ScriptDevice::~ScriptDevice() {
  if (isOpen_) take();
}

emscripten::val ScriptDevice::take() {
  isOpen_ = false;
  return emscripten::val::take_ownership(quillonCloseScript(name_.c_str()));
}

}  // namespace quillon::web
