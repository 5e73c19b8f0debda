// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Two guards, one inside the other. Inside, a try block takes what this compiler throws, so that the
// exception object is destroyed and the runtime's count of exceptions in flight stays right. Outside, a
// structured-exception frame takes everything else: a catch (...) of this compiler is blind to exceptions of
// other compilers and to those of the processor and the system.
//
// The frame is written in assembly because the compiler cannot express one. It calls body(context); when an
// exception arrives that nobody further in wanted, the handler has the system unwind the frames further in
// (their destructors run, as far as their compilers registered any) and goes on at the landing place, which
// puts the processor and the stack in order and returns 0.
//
// A vectored handler would be simpler and wrong: it sees exceptions before the host's own handlers do.
#include <malloc.h>
#include <windows.h>

#include "platform/platform.h"

extern "C" {
int corvane_print_guarded_frame(int (*body)(void* context), void* context);
int corvane_print_guarded_landed(DWORD code);
#if defined(__x86_64__)
extern const char corvane_print_guarded_landing[];
EXCEPTION_DISPOSITION corvane_print_guarded_handler(EXCEPTION_RECORD* record, void* frame, CONTEXT* context,
                                                    DISPATCHER_CONTEXT* dispatcher);
#endif
}

#if defined(__x86_64__)

// Handlers are found by tables here, and the unwinder restores all registers that the frame must preserve.
// The handler is entered for exceptions only (@except), not when somebody further out unwinds this frame.
// The stack is moved by 40: 32 bytes that belong to the called function, and 8 that align the call.
asm(R"(
    .text
    .p2align 4
    .globl corvane_print_guarded_frame
    .def corvane_print_guarded_frame; .scl 2; .type 32; .endef
    .globl corvane_print_guarded_landing
    .seh_proc corvane_print_guarded_frame
corvane_print_guarded_frame:
    subq    $40, %rsp
    .seh_stackalloc 40
    .seh_endprologue
    .seh_handler corvane_print_guarded_handler, @except
    movq    %rcx, %rax
    movq    %rdx, %rcx
    call    *%rax
    nop
    addq    $40, %rsp
    ret
corvane_print_guarded_landing:
    movl    %eax, %ecx
    call    corvane_print_guarded_landed
    nop
    addq    $40, %rsp
    ret
    .seh_endproc
)");

extern "C" EXCEPTION_DISPOSITION corvane_print_guarded_handler(EXCEPTION_RECORD* record, void* frame,
                                                               CONTEXT*, DISPATCHER_CONTEXT* dispatcher) {
  // The landing place finds it in eax.
  void* const code = reinterpret_cast<void*>(static_cast<DWORD_PTR>(record->ExceptionCode));
  RtlUnwindEx(frame, const_cast<char*>(corvane_print_guarded_landing), record, code,
              dispatcher->ContextRecord, dispatcher->HistoryTable);
  return ExceptionContinueSearch;  // not reached
}

#elif defined(__i386__)

// Handlers are found by a list of records on the stack, whose head is at fs:0: {next record, handler}. The
// record is the last thing pushed before the argument, so the handler finds the whole frame through it.
// RtlUnwind takes the records further in off the list and leaves ours at its head. It promises to keep ebp
// and esp only; ebx, esi and edi come back from our stack.
asm(R"(
    .text
    .p2align 4
    .globl _corvane_print_guarded_frame
    .def _corvane_print_guarded_frame; .scl 2; .type 32; .endef
_corvane_print_guarded_frame:
    pushl   %ebp
    movl    %esp, %ebp
    pushl   %ebx
    pushl   %esi
    pushl   %edi
    pushl   $corvane_print_guarded_handler
    pushl   %fs:0
    movl    %esp, %fs:0
    pushl   12(%ebp)
    call    *8(%ebp)
    addl    $4, %esp
corvane_print_guarded_leave:
    popl    %fs:0
    addl    $4, %esp
    popl    %edi
    popl    %esi
    popl    %ebx
    popl    %ebp
    ret

    # handler(exception record, our record, ...), as the C convention passes them
    .p2align 4
corvane_print_guarded_handler:
    movl    4(%esp), %eax
    testl   $6, 4(%eax)     # unwinding: somebody further out took the exception
    jnz     corvane_print_guarded_decline
    pushl   $0
    pushl   %eax
    pushl   $corvane_print_guarded_unwound
    pushl   20(%esp)
    call    _RtlUnwind@16
corvane_print_guarded_unwound:
    movl    4(%esp), %eax
    movl    (%eax), %eax
    movl    8(%esp), %esp
    pushl   %eax
    call    _corvane_print_guarded_landed
    addl    $4, %esp
    jmp     corvane_print_guarded_leave
corvane_print_guarded_decline:
    movl    $1, %eax        # ExceptionContinueSearch
    ret
)");

#else
#error "no structured-exception frame for this processor"
#endif

// The result of a call that ended in an exception; first, what our callers may rely on is put right. The x87
// registers are empty at every call, but not in the middle of an expression. The string instructions run
// upwards. And a stack that ran out needs a new guard page, or the next time ends the process.
extern "C" int corvane_print_guarded_landed(DWORD code) {
  asm volatile("emms\n\tcld");
  if (code == EXCEPTION_STACK_OVERFLOW) _resetstkoflw();
  return 0;
}

namespace Corvane::Print::platform {
namespace {

struct Call {
  int (*body)(void* context);
  void* context;
};

int run_in_try(void* call_address) {
  const Call* const call = static_cast<const Call*>(call_address);
  try {
    return call->body(call->context);
  } catch (...) {
    return 0;
  }
}

}  // namespace

int guarded_call(int (*body)(void* context), void* context) {
  Call call{body, context};
  return corvane_print_guarded_frame(run_in_try, &call);
}

}  // namespace Corvane::Print::platform
