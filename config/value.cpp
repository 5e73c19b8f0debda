// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A lookup starts with room for 64 characters, which is enough for most values, and grows to what the source
// asks for. The environment counts characters and the host's callback bytes; each is given its own unit.
//
// Invariant of the buffer: it is zero where nobody wrote, and its last whole character is zero whenever it
// leaves this file. No shared state.
#include "config/value.h"

#include <cstddef>
#include <cstring>
#include <utility>

#include "platform/capi_memory.h"
#include "platform/platform.h"

namespace Corvane::Print::config {
namespace {

constexpr int kFirstBytes = 128;
constexpr int kCharBytes = static_cast<int>(sizeof(CPWChar));

class ValueBuffer {
public:
  ValueBuffer() = default;
  ~ValueBuffer() { platform::capi_free(text_); }
  ValueBuffer(const ValueBuffer&) = delete;
  ValueBuffer& operator=(const ValueBuffer&) = delete;

  // Grows to `bytes` bytes; what is there stays. False, and nothing changed, when memory ran out.
  bool grow(std::size_t bytes) {
    void* const block = platform::capi_realloc(text_, bytes);
    if (block == nullptr) return false;
    text_ = static_cast<CPWChar*>(block);
    std::memset(static_cast<char*>(block) + bytes_, 0, bytes - bytes_);
    bytes_ = bytes;
    return true;
  }

  CPWChar* text() { return text_; }

  // Hands the block over, terminated.
  CPWChar* yield() {
    text_[bytes_ / sizeof(CPWChar) - 1] = 0;
    return std::exchange(text_, nullptr);
  }

private:
  CPWChar* text_ = nullptr;
  std::size_t bytes_ = 0;
};

struct Question {
  CFGetEnvVarCallback callback;
  const CPWChar* name;
  CPWChar* buffer;
  int capacity;  // bytes
  bool answered = false;
};

int put_question(void* question_address) {
  Question& question = *static_cast<Question*>(question_address);
  const int bytes = question.callback(question.name, question.buffer, question.capacity);
  question.answered = true;
  return bytes;
}

}  // namespace

// What the first room on the stack buys: a variable that is not defined costs no block, and a failing search
// asks for several. Why it cannot change a result: a value has the block that it always had.
CPWChar* value_from_environment(EnvironmentText lookup, const CPWChar* name) {
  CPWChar first[kFirstBytes / kCharBytes];
  int room = kFirstBytes / kCharBytes;
  int needed = lookup(name, first, room);
  if (needed == 0) return nullptr;
  ValueBuffer buffer;
  if (!buffer.grow(kFirstBytes)) return nullptr;
  if (needed <= room) {
    std::memcpy(buffer.text(), first, static_cast<std::size_t>(needed) * sizeof(CPWChar));
    return buffer.yield();
  }
  // The variable may have grown since it was measured: ask until it fits.
  while (needed > room) {
    if (!buffer.grow(static_cast<std::size_t>(needed) * sizeof(CPWChar))) return nullptr;
    room = needed;
    needed = lookup(name, buffer.text(), room);
  }
  return needed != 0 ? buffer.yield() : nullptr;
}

CPWChar* value_from_callback(CFGetEnvVarCallback callback, const CPWChar* name) {
  ValueBuffer buffer;
  if (!buffer.grow(kFirstBytes)) return nullptr;
  Question first{callback, name, buffer.text(), kFirstBytes};
  const int bytes = platform::guarded_call(put_question, &first);
  if (bytes == 0) return nullptr;
  // KEEP(cf-callback-negative-count): only 0 means undefined; a negative count counts as one that fitted.
  // Looks wrong; the comparison is signed by contract, and a host that answers -1 after filling the buffer
  // gets its value. Pinned by GetenvCallback.NegativeCountYieldsTheBuffer.
  if (bytes <= kFirstBytes) return buffer.yield();

  if (!buffer.grow(static_cast<std::size_t>(bytes))) return nullptr;
  Question second{callback, name, buffer.text(), bytes};
  platform::guarded_call(put_question, &second);
  // KEEP(cf-callback-second-count): the second count is not looked at; the buffer is the value as it is, even
  // when the callback now says that there is none. Looks wrong; hosts return anything there. Only an
  // exception counts. Pinned by GetenvCallback.SecondCountIsNotLookedAt.
  return second.answered ? buffer.yield() : nullptr;
}

}  // namespace Corvane::Print::config
