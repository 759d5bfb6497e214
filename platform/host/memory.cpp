// The pipeline's memory services on a workstation: the plain heap, unaccounted.
#include <camx/memory.h>

#include <cstdlib>

void* CamxCalloc(std::size_t size) { return std::calloc(1, size); }

void CamxFree(void* memory) { std::free(memory); }

void* operator new(std::size_t size, int, int, const char*, int) noexcept {
  return ::operator new(size, std::nothrow);
}

void operator delete(void* memory, int, int, const char*, int) noexcept {
  ::operator delete(memory);
}
