#include "windows/scarce_memory.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace quillon::windows {
namespace {

std::atomic<std::size_t> leastRefused{SIZE_MAX};
thread_local bool isSpared = false;

void* memoryFor(std::size_t bytes) noexcept {
  if (bytes >= leastRefused && !isSpared) return nullptr;
  return std::malloc(bytes == 0 ? 1 : bytes);
}

void* memoryOrThrow(std::size_t bytes) {
  if (void* const memory = memoryFor(bytes)) return memory;
  throw std::bad_alloc();
}

}  // namespace

ScarceMemory::ScarceMemory(std::size_t bytes) {
  isSpared = true;
  leastRefused = bytes;
}

ScarceMemory::~ScarceMemory() {
  leastRefused = SIZE_MAX;
  isSpared = false;
}

}  // namespace quillon::windows

// All of them, as a sanitizer has its own for those that are not replaced.
void* operator new(std::size_t bytes) { return quillon::windows::memoryOrThrow(bytes); }
void* operator new[](std::size_t bytes) { return quillon::windows::memoryOrThrow(bytes); }
void* operator new(std::size_t bytes, const std::nothrow_t& /*tag*/) noexcept {
  return quillon::windows::memoryFor(bytes);
}
void* operator new[](std::size_t bytes, const std::nothrow_t& /*tag*/) noexcept {
  return quillon::windows::memoryFor(bytes);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*bytes*/) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t /*bytes*/) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t& /*tag*/) noexcept { std::free(memory); }
