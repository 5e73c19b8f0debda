// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A host that was built with the compiler of the system, not with that of the library: it knows the functions
// of the namespace by other names and has other ideas of exceptions. One call for each kind of thing that
// crosses the border.
#include "calls.h"

#include "corvane/print/cf.h"
#include "corvane/print/cl.h"
#include "corvane/print/db.h"
#include "corvane/print/dbgtools.h"
#include "corvane/print/fu.h"
#include "corvane/print/geom.h"
#include "corvane/print/mat.h"
#include "corvane/print/ol.h"
#include "corvane/print/plain.h"
#include "corvane/print/str.h"
#include "system.h"

// As an older header of a host may have them, with const elsewhere.
namespace Corvane::Print {
__declspec(dllimport) int STRCompareCIW(wchar_t* s1, wchar_t* s2);
__declspec(dllimport) wchar_t* STRInsertSubstrW(wchar_t* str, int pos, const wchar_t* sub, wchar_t* out);
__declspec(dllimport) int GEOMAddVector(int n, const double* a, const double* b, double* sum);
}  // namespace Corvane::Print

namespace {

using namespace Corvane::Print;

bool same(const wchar_t* a, const wchar_t* b) {
  while (*a != 0 && *a == *b) ++a, ++b;
  return *a == *b;
}

bool same(const char* a, const char* b) {
  while (*a != 0 && *a == *b) ++a, ++b;
  return *a == *b;
}

// Every variable has the value "clip, Fences"; the count is in bytes.
int __cdecl lookup(const wchar_t*, wchar_t* buffer, int capacity) {
  const wchar_t value[] = L"clip, Fences";
  if (capacity < static_cast<int>(sizeof value)) return sizeof value;
  for (int i = 0; i < 13; ++i) buffer[i] = value[i];
  return sizeof value;
}

// As a C++ exception of this compiler's begins.
int __cdecl throwing_lookup(const wchar_t*, wchar_t*, int) {
  const void* const arguments[3] = {nullptr, nullptr, nullptr};
  RaiseException(0xE06D7363, 1, 3, arguments);
  return 8;
}

int __cdecl descending(void* new_item, void* list_item, void*) {
  return *static_cast<int*>(list_item) - *static_cast<int*>(new_item);
}

int __cdecl equals(void* item, void* wanted) {
  return *static_cast<int*>(item) == *static_cast<int*>(wanted);
}

bool clips_a_line() {
  double corners[4] = {0, 0, 10, 10}, out[36] = {};
  const double line[6] = {-5, 5, 5, 5, 8, 9};
  int two = 2, pieces = 4, points = 12, counts[4] = {};
  CLFenceHandle fence = nullptr;
  if (CLdefFence(&fence, 2, 1, &two, corners, 0.0, 0.0, CL_KEEP_INSIDE) != CL_OK) return false;
  const int status = CLclipLine(fence, 2, 3, line, &pieces, counts, out, &points);
  return CLdeleteFence(fence) == CL_OK && status == CL_OK && pieces == 1 && counts[0] == 3 && out[0] == 0 &&
         out[5] == 9;
}

bool parses_a_file_name() {
  char name[FU_NARROW], ext[FU_NARROW];
  return FUParseUFS("C:\\plots\\a1.plt", nullptr, nullptr, name, ext, nullptr) == FU_OK && same(name, "a1") &&
         same(ext, "plt") && FUIsFullHFSW(L"C:\\a\\b") == 1;
}

bool gets_a_value() {
  SetEnvironmentVariableA("CORVANE_FOREIGN", "from the environment");
  wchar_t* const wide = CFGetenvW(L"CORVANE_FOREIGN");
  char* const narrow = CFGetenv("CORVANE_FOREIGN");
  const bool right = wide != nullptr && narrow != nullptr && same(wide, L"from the environment") &&
                     same(narrow, "from the environment");
  CFReleaseValue(wide);
  CFReleaseValue(narrow);
  return right && CFGetenv("CORVANE_FOREIGN_OTHER") == nullptr;
}

// Only one byte of the register is the result.
bool gets_a_bool() {
  SetEnvironmentVariableA("CORVANE_FOREIGN", "x");
  return CFIsVariableDefined("CORVANE_FOREIGN") == true && CFIsVariableDefinedW(L"CORVANE_FOREIGN") == true &&
         CFIsVariableDefined("CORVANE_FOREIGN_OTHER") == false && FUIsIPAddress(L"1.2.3.4") == true &&
         FUIsIPAddress(L"none") == false;
}

bool is_called_back() {
  CFSetGetEnvVarCallback(lookup);
  wchar_t* const value = CFGetenvW(L"ANYTHING");
  CFSetGetEnvVarCallback(nullptr);
  const bool right = value != nullptr && same(value, L"clip, Fences");
  CFReleaseValue(value);
  return right;
}

bool is_called_back_by_a_list() {
  void* const list = OLCreate();
  int numbers[] = {2, 3, 1};
  for (int& number : numbers) OLItemInsert(list, &number, sizeof number, descending, nullptr);
  void *first = nullptr, *found = nullptr;
  int one = 1, index = 0;
  const bool right = OLItemGetByIndex(list, 0, &first) == OL_OK && *static_cast<int*>(first) == 3 &&
                     OLItemGetByFilter(list, equals, &one, &index, &found) == OL_OK && index == 2 &&
                     *static_cast<int*>(found) == 1;
  return OLDestroy(list) == OL_OK && right;
}

// Twice, for a guard that was left in place would show then.
bool may_throw_in_a_callback() {
  CFSetGetEnvVarCallback(throwing_lookup);
  bool right = CFGetenvW(L"ANYTHING") == nullptr;
  right = !CFIsVariableDefined("ANYTHING") && right;
  CFSetGetEnvVarCallback(nullptr);
  return gets_a_value() && right;
}

bool calls_members() {
  CFSetGetEnvVarCallback(lookup);
  DbgTools& tools = DbgTools::Instance();
  const bool before = tools.enabled || tools.IsFlagDefined("clip");
  tools.AddDebugVar("ANYTHING");
  CFSetGetEnvVarCallback(nullptr);
  return !before && &tools == &DbgTools::Instance() && tools.enabled && !tools.all &&
         tools.flags != nullptr && tools.IsFlagDefined("FENCES") && !tools.IsFlagDefined("grow") &&
         DbgTools_isDebugOn("clip") == 1;
}

bool computes() {
  double shift[9], scale[9], both[9], p[3] = {1, 2, 1};
  MATBuildTransHMat(2, 5, 7, 0, shift);
  MATBuildScaleHMat(2, 2, 4, 0, scale);
  MATMulMatMat(3, scale, shift, both);
  MATMulVecMat(3, p, 1, both, p);
  return p[0] == 7 && p[1] == 15 && p[2] == 1 && GEOMValueInRange(5, 4, 6) == 1 &&
         GEOMValueInRange(7, 4, 6) == 0;
}

bool edits_text() {
  char text[] = "A1-plan.PLT";
  return same(STRLower(text, text), "a1-plan.plt") && STRMatchPatternCI(text, "A?-*.PLT") == 1;
}

bool has_other_spellings_of_const() {
  wchar_t a[] = L"Fence", b[] = L"fENCE", out[16];
  const double x[] = {1, 2}, y[] = {3, 4};
  double sum[2] = {};
  return STRCompareCIW(a, b) == 0 && same(STRInsertSubstrW(a, 0, L"no ", out), L"no Fence") &&
         GEOMAddVector(2, x, y, sum) == 0 && sum[0] == 4 && sum[1] == 6;
}

bool passes_arguments_of_any_number() {
  char title[] = "title";
  return DBMSG("%d %s\n", 1, "text") == 0 && DBMSGW(L"%d %f\n", 1, 2.0) == 0 && DBLB(title, 1, title) == 0;
}

bool finds_plain_names() {
  double a[] = {1, 2}, b[] = {3, 4}, sum[2] = {};
  return Corvane::Plain::GEOMAddVector(2, a, b, sum) == 0 && sum[1] == 6 &&
         Corvane::Plain::GEOMValueInRange(5, 4, 6) == 1 && Corvane::Plain::STRCompareCI("a", "A") == 0;
}

}  // namespace

const Call kCalls[] = {{"ClipsALine", clips_a_line},
                       {"ParsesAFileName", parses_a_file_name},
                       {"GetsAValue", gets_a_value},
                       {"GetsABool", gets_a_bool},
                       {"IsCalledBack", is_called_back},
                       {"IsCalledBackByAList", is_called_back_by_a_list},
                       {"MayThrowInACallback", may_throw_in_a_callback},
                       {"CallsMembers", calls_members},
                       {"Computes", computes},
                       {"EditsText", edits_text},
                       {"HasOtherSpellingsOfConst", has_other_spellings_of_const},
                       {"PassesArgumentsOfAnyNumber", passes_arguments_of_any_number},
                       {"FindsPlainNames", finds_plain_names},
                       {nullptr, nullptr}};
